#include "seam/system/text_icu.h"
#include "shortcuts/shortcut_recorder_button.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

/// A window that is hard to deal with; the rest is tested on the modelled Mac.
struct Window final : RecorderButtonHost, Keyboard {
    void show(std::string title, RecorderLook) override { shown = std::move(title); }

    bool isInWindow() const override { return isThere; }

    bool makeFirstResponder() override {
        ++responderCalls;
        return letsGo;
    }

    bool isFirstResponder() const override { return isFirst; }

    Subscription onWindowResignedKey(std::function<void()>) override { return {}; }

    std::string character(KeyCode) const override { return "k"; }

    Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) override {
        monitor = std::move(handler);
        return {};
    }

    void beep() override {}

    std::string shown;
    bool isThere = true;
    bool letsGo = true;
    bool isFirst = true;
    int responderCalls = 0;
    std::function<KeyHandling(const KeyPress&)> monitor;
};

TEST(ShortcutRecorderButton, recordsOnlyAsFirstResponderOfAWindow) {
    const auto text = mac_model::makeIcuText();
    Window window;
    ShortcutRecorderButton button(window, KeyNames(window, *text), window);
    int ends = 0;
    button.onRecordingEnded = [&](const auto&) { ++ends; };
    button.setShortcut(HotKeyShortcut(40, commandKeyFlag));
    window.isThere = false;
    button.clicked();
    window.isThere = true;
    window.letsGo = false;
    button.clicked();
    EXPECT_EQ(window.shown, "⌘K");
    EXPECT_FALSE(window.monitor);
    EXPECT_EQ(window.responderCalls, 1);
    window.letsGo = true;
    button.clicked();
    button.clicked();
    EXPECT_EQ(window.responderCalls, 2) << "a click while it records changes nothing";
    window.isFirst = false;
    EXPECT_EQ(window.monitor({40, controlKeyFlag}), KeyHandling::PassedOn);
    EXPECT_EQ(ends, 0);
    window.isFirst = true;
    EXPECT_EQ(window.monitor({40, controlKeyFlag}), KeyHandling::Consumed);
    EXPECT_EQ(ends, 1);
}

} // namespace
} // namespace tavrin
