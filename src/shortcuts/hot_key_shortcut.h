#pragma once

#include "platform/hot_keys.h"
#include "platform/keyboard.h"
#include "platform/text.h"

#include <compare>
#include <cstdint>
#include <string>

namespace tavrin {

/// A key with modifier keys.
class HotKeyShortcut {
  public:
    static constexpr ModifierFlags modifiersMask = 0x1E0000;
    /// A shortcut holds at least one of these.
    static constexpr ModifierFlags leadingModifiersMask = controlKeyFlag | optionKeyFlag | commandKeyFlag;

    /// Of the flags only Shift, Control, Option and Command are kept.
    constexpr HotKeyShortcut(KeyCode keyCode, ModifierFlags modifierFlags)
        : keyCode_(keyCode)
        , modifierFlags_(modifierFlags & modifiersMask) {}

    constexpr KeyCode keyCode() const { return keyCode_; }

    constexpr ModifierFlags modifierFlags() const { return modifierFlags_; }

    CarbonModifiers carbonModifiers() const;

    auto operator<=>(const HotKeyShortcut&) const = default;

  private:
    KeyCode keyCode_;
    ModifierFlags modifierFlags_;
};

/// The four modifier flags that these Carbon modifiers stand for.
ModifierFlags modifierFlagsFrom(CarbonModifiers modifiers);

/// The names of keys on the current keyboard layout.
class KeyNames {
  public:
    KeyNames(const Keyboard& keyboard, const Text& text) : keyboard_(&keyboard), text_(&text) {}

    std::string nameOf(KeyCode key) const;

    /// Glyphs of the modifiers and the key's name, such as "⌃⌥H".
    std::string displayString(const HotKeyShortcut& shortcut) const;

  private:
    const Keyboard* keyboard_;
    const Text* text_;
};

} // namespace tavrin
