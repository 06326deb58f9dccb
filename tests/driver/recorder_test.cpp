#include "driver/probe_program.h"
#include "platform/hot_keys.h"
#include "shortcuts/shortcut_recorder_field.h"
#include "support/tavrin_mac.h"
#include "views/view_builders.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::HotKeyShortcut;
using Log = std::vector<std::string>;
using Modifiers = std::vector<std::string>;

/// A window with two recorders, a row that takes the focus, and nothing of Tavrin's own.
class Recorder : public ::testing::Test {
  protected:
    Recorder()
        : mac({.program = [this](tavrin::Platform& platform) {
            return std::make_unique<ProbeDelegate>(probe, platform);
        }}) {
        mac.settle();
        probe.platform->application.activateIgnoringOthers();
        probe.window = probe.platform->presentation.makeWindow("Probe", probe.logs("closed"));
        show({"First", "Second"});
        probe.window->makeKeyAndOrderFront();
        mac.settle();
    }

    tavrin::View recorder(const std::string& name) {
        tavrin::ShortcutRecorderField field;
        field.accessibilityLabel = name;
        field.shortcut = shortcuts[name];
        field.onRecordingEnded = [this, name](const std::optional<HotKeyShortcut>& recorded) {
            if (recorded)
                probe.log.push_back(name + " " + std::to_string(recorded->keyCode()) + " " +
                                    std::to_string(recorded->modifierFlags() >> 16));
            else
                probe.log.push_back(name + " cancelled");
        };
        return field.view(*probe.platform);
    }

    tavrin::View content(const std::vector<std::string>& recorders) {
        auto row = tavrin::text("Row");
        row.isFocusable = true;
        std::vector<tavrin::View> views{std::move(row), tavrin::button("Plain", probe.logs("pressed"))};
        for (const auto& name : recorders) views.push_back(recorder(name));
        return tavrin::column(std::move(views), {.padding = 20});
    }

    void show(const std::vector<std::string>& recorders) { probe.window->setContent(content(recorders)); }

    json node(const std::string& label) {
        for (const auto& surface : mac.surfacesOf(tavrinBundle))
            for (const auto& child : surface["children"].back().value("children", json::array()))
                if (child.value("label", "") == label) return child;
        return nullptr;
    }

    std::string title(const std::string& label) { return node(label).value("text", "absent"); }

    void key(const std::string& name, const Modifiers& modifiers = {}) {
        mac.done({{"do", "key"}, {"key", name}, {"modifiers", modifiers}});
    }

    Log takeLog() { return std::exchange(probe.log, {}); }

    std::size_t beeps() {
        std::size_t count = 0;
        for (const auto& event : mac.events()["events"]) count += event["type"] == "beep";
        return count;
    }

    Probe probe;
    std::map<std::string, std::optional<HotKeyShortcut>> shortcuts;
    TavrinMac mac;
};

} // namespace

TEST_F(Recorder, showsWhatItIsAbout) {
    EXPECT_EQ(title("First"), "Record Shortcut");
    shortcuts["First"] = HotKeyShortcut(49, tavrin::commandKeyFlag | tavrin::shiftKeyFlag);
    show({"First", "Second"});
    EXPECT_EQ(title("First"), "⇧⌘Space");
    mac.press("First");
    EXPECT_EQ(title("First"), "Type shortcut…");
    EXPECT_EQ(node("First")["focused"], true);
    EXPECT_EQ(node("First")["recording"], true);
    show({"First", "Second"});
    EXPECT_EQ(title("First"), "Type shortcut…") << "a new rendering leaves it recording";
    key("escape");
    EXPECT_EQ(title("First"), "⇧⌘Space");
}

TEST_F(Recorder, takesAKeyWithControlOptionOrCommand) {
    struct Case {
        std::string key;
        Modifiers modifiers;
        std::string recorded; // empty: it beeps and goes on
    };

    const std::vector<Case> cases{
        {"a", {"shift"}, ""},
        {"a", {}, ""},
        {"tab", {}, ""},
        {"return", {"shift"}, ""},
        {"f5", {}, ""},
        {"a", {"control"}, "First 0 4"},
        {"a", {"shift", "option"}, "First 0 10"},
        {"tab", {"command"}, "First 48 16"},
        {"w", {"command"}, "First 13 16"},
        {"space", {"shift", "control", "option", "command"}, "First 49 30"},
        {"f5", {"control"}, "First 96 4"},
        {"escape", {}, "First cancelled"},
        {"escape", {"control", "command"}, "First cancelled"},
    };
    for (const auto& c : cases) {
        mac.press("First");
        (void)beeps();
        key(c.key, c.modifiers);
        EXPECT_EQ(takeLog(), c.recorded.empty() ? Log{} : Log{c.recorded}) << c.key;
        EXPECT_EQ(beeps(), c.recorded.empty() ? 1u : 0u) << c.key;
        EXPECT_EQ(title("First") == "Type shortcut…", c.recorded.empty()) << c.key;
        if (c.recorded.empty()) key("escape");
        (void)takeLog();
    }
    EXPECT_FALSE(mac.surfacesOf(tavrinBundle).empty()) << "no key went on to the window";
}

TEST_F(Recorder, isPressedByTheKeyboardToo) {
    for (int i = 0; i < 3; ++i) key("tab");
    EXPECT_EQ(node("First")["focused"], true);
    key("space");
    EXPECT_EQ(title("First"), "Type shortcut…");
    key("k", {"option"});
    EXPECT_EQ(takeLog(), Log{"First 40 8"});
    key("space");
    EXPECT_EQ(title("First"), "Type shortcut…") << "it has kept the focus";
    key("escape");
}

TEST_F(Recorder, endsWhenSomethingElseGetsTheKeyboard) {
    const std::vector<std::pair<std::string, std::function<void()>>> ends{
        {"another recorder", [&] { mac.press("Second"); }},
        {"a view that takes the focus", [&] { mac.done({{"do", "click"}, {"text", "Row"}}); }},
        {"the desktop", [&] { mac.done({{"do", "click"}, {"at", {20, 700}}}); }},
        {"a popover",
         [&] {
             probe.popover =
                 probe.platform->presentation.makePopover(tavrin::PopoverBehavior::Transient, [] {});
             ASSERT_TRUE(probe.popover->show(*probe.item, *probe.item->frame()));
             mac.settle();
             probe.popover.reset();
         }},
        {"nothing, because it is gone", [&] { show({}); }},
        {"nothing, because the window was closed", [&] { mac.press("close button"); }},
    };
    for (const auto& [what, end] : ends) {
        show({"First", "Second"});
        probe.platform->application.activateIgnoringOthers();
        probe.window->makeKeyAndOrderFront();
        mac.settle();
        mac.press("First");
        ASSERT_EQ(title("First"), "Type shortcut…") << what;
        end();
        mac.settle();
        const auto log = takeLog();
        ASSERT_FALSE(log.empty()) << what;
        EXPECT_EQ(log.front(), "First cancelled") << what;
        key("k", {"control"});
        for (const auto& line : takeLog()) EXPECT_FALSE(line.starts_with("First")) << what;
        key("escape");
        (void)takeLog();
    }
}

TEST_F(Recorder, aButtonThatTakesNoFocusLeavesItRecording) {
    mac.press("First");
    mac.press("Plain");
    EXPECT_EQ(takeLog(), Log{"pressed"});
    EXPECT_EQ(title("First"), "Type shortcut…");
    key("k", {"control"});
    EXPECT_EQ(takeLog(), Log{"First 40 4"});
}

TEST_F(Recorder, recordsInAPanel) {
    probe.window.reset();
    const auto panel = probe.platform->presentation.makePanel();
    panel->setContent(content({"First"}));
    panel->show({600, 0, 40, 24});
    mac.settle();
    mac.press("First");
    EXPECT_EQ(title("First"), "Type shortcut…");
    EXPECT_EQ(node("First")["focused"], true);
    key("k", {"control"});
    EXPECT_EQ(takeLog(), Log{"First 40 4"});
    mac.press("First");
    panel->close();
    mac.settle();
    EXPECT_EQ(takeLog(), Log{"First cancelled"}) << "the panel has closed";
}

TEST_F(Recorder, doesNotSeeWhatIsAHotKey) {
    const auto registered = probe.platform->hotKeys.registerHotKey(40, tavrin::carbonOptionKey, {1, 1});
    ASSERT_TRUE(registered);
    mac.press("First");
    key("k", {"option"});
    EXPECT_EQ(takeLog(), Log{});
    EXPECT_EQ(title("First"), "Type shortcut…");
}

TEST_F(Recorder, isOfTheLayout) {
    mac.set("keyboardLayout", "french");
    mac.press("First");
    key("a", {"command"});
    EXPECT_EQ(takeLog(), Log{"First 12 16"}) << "the key that is Q on the US layout";
}

} // namespace mac_model
