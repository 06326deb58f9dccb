#include "desktop/keyboard_layout.h"
#include "seam/system/text_icu.h"
#include "shortcuts/hot_key_shortcut.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using mac_model::KeyboardLayout;

constexpr auto shift = shiftKeyFlag;
constexpr auto control = controlKeyFlag;
constexpr auto option = optionKeyFlag;
constexpr auto command = commandKeyFlag;

class LayoutKeyboard final : public Keyboard {
  public:
    explicit LayoutKeyboard(KeyboardLayout layout) : layout_(layout) {}

    std::string character(KeyCode key) const override { return mac_model::characterOn(layout_, key); }

    Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)>) override { return {}; }

    void beep() override {}

  private:
    KeyboardLayout layout_;
};

TEST(HotKeyShortcut, isWrittenAsTheLayoutCallsItsKey) {
    struct Case {
        KeyboardLayout layout;
        KeyCode key;
        ModifierFlags flags;
        std::string expected;
    };
    using enum KeyboardLayout;
    const std::vector<Case> cases{
        {Us, 4, control | option, "⌃⌥H"},
        {Us, 49, command | shift, "⇧⌘Space"},
        {Us, 12, control | option | shift | command, "⌃⌥⇧⌘Q"},
        {Us, 6, command, "⌘Z"},
        {German, 6, command, "⌘Y"},
        {French, 6, command, "⌘W"},
        {German, 41, option, "⌥Ö"},
        {German, 27, option, "⌥ß"}, // no capital of one letter
        {French, 19, control, "⌃É"},
        {French, 18, control, "⌃&"},
        {Us, 50, command, "⌘`"},
        {None, 4, control | option, "⌃⌥Key 4"},
        {Us, 60, command, "⌘Key 60"},
        {German, 36, control, "⌃↩"},
        {French, 117, control, "⌃⌦"},
        {None, 122, control, "⌃F1"},
        {Us, 90, control, "⌃F20"},
        {Us, 126, control, "⌃↑"},
        {Us, 125, control, "⌃↓"},
        {Us, 115, control, "⌃↖"},
        {Us, 121, control, "⌃⇟"},
        {German, 76, control, "⌃⌤"}, // these make control characters
        {Us, 71, command, "⌘⌧"},
        {Us, 114, option, "⌥Help"},
        {Us, 110, option, "⌥Key 110"},
    };
    const auto text = mac_model::makeIcuText();
    for (const auto& c : cases) {
        const LayoutKeyboard keyboard(c.layout);
        EXPECT_EQ(KeyNames(keyboard, *text).displayString({c.key, c.flags}), c.expected);
    }
}

TEST(HotKeyShortcut, keepsFourModifiersAndNamesThemForCarbon) {
    const HotKeyShortcut everything(1, ~ModifierFlags{0});
    EXPECT_EQ(everything.modifierFlags(), 0x1E0000u);
    EXPECT_EQ(everything, HotKeyShortcut(1, shift | control | option | command));
    const std::vector<std::pair<ModifierFlags, CarbonModifiers>> pairs{
        {command, 0x100}, {shift, 0x200}, {option, 0x800}, {control, 0x1000}, {0x1E0000, 0x1B00}, {0, 0}};
    for (const auto& [flags, carbon] : pairs) {
        EXPECT_EQ(HotKeyShortcut(0, flags).carbonModifiers(), carbon);
        EXPECT_EQ(modifierFlagsFrom(carbon), flags);
    }
    EXPECT_EQ(modifierFlagsFrom(0x400), 0u) << "Caps Lock is no part of a shortcut";
}

} // namespace
} // namespace tavrin
