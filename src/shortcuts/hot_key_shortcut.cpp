#include "shortcuts/hot_key_shortcut.h"

#include "base/unicode.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrin {

namespace {

struct ModifierKey {
    ModifierFlags flag;
    CarbonModifiers carbon;
    std::string_view glyph;
};

/// In the order in which macOS writes them.
constexpr std::array modifierKeys{
    ModifierKey{controlKeyFlag, carbonControlKey, "⌃"},
    ModifierKey{optionKeyFlag, carbonOptionKey, "⌥"},
    ModifierKey{shiftKeyFlag, carbonShiftKey, "⇧"},
    ModifierKey{commandKeyFlag, carbonCommandKey, "⌘"},
};

struct SpecialKey {
    KeyCode code;
    std::string_view name;
};

constexpr std::array specialKeys{
    SpecialKey{49, "Space"}, SpecialKey{36, "↩"},    SpecialKey{48, "⇥"},    SpecialKey{51, "⌫"},
    SpecialKey{117, "⌦"},    SpecialKey{53, "⎋"},    SpecialKey{123, "←"},   SpecialKey{124, "→"},
    SpecialKey{126, "↑"},    SpecialKey{125, "↓"},   SpecialKey{115, "↖"},   SpecialKey{119, "↘"},
    SpecialKey{116, "⇞"},    SpecialKey{121, "⇟"},   SpecialKey{122, "F1"},  SpecialKey{120, "F2"},
    SpecialKey{99, "F3"},    SpecialKey{118, "F4"},  SpecialKey{96, "F5"},   SpecialKey{97, "F6"},
    SpecialKey{98, "F7"},    SpecialKey{100, "F8"},  SpecialKey{101, "F9"},  SpecialKey{109, "F10"},
    SpecialKey{103, "F11"},  SpecialKey{111, "F12"}, SpecialKey{105, "F13"}, SpecialKey{107, "F14"},
    SpecialKey{113, "F15"},  SpecialKey{106, "F16"}, SpecialKey{64, "F17"},  SpecialKey{79, "F18"},
    SpecialKey{80, "F19"},   SpecialKey{90, "F20"},  SpecialKey{76, "⌤"},    SpecialKey{71, "⌧"},
    SpecialKey{114, "Help"},
};

/// Layouts give control characters to keys that make none.
bool isControlCharacter(std::string_view character) {
    return character.size() == 1 && (static_cast<unsigned char>(character[0]) < 0x20 || character[0] == 0x7F);
}

} // namespace

CarbonModifiers HotKeyShortcut::carbonModifiers() const {
    CarbonModifiers modifiers = 0;
    for (const auto& key : modifierKeys)
        if (modifierFlags_ & key.flag) modifiers |= key.carbon;
    return modifiers;
}

ModifierFlags modifierFlagsFrom(CarbonModifiers modifiers) {
    ModifierFlags flags = 0;
    for (const auto& key : modifierKeys)
        if (modifiers & key.carbon) flags |= key.flag;
    return flags;
}

std::string KeyNames::nameOf(KeyCode key) const {
    const auto special = std::ranges::find(specialKeys, key, &SpecialKey::code);
    if (special != specialKeys.end()) return std::string(special->name);
    const auto character = keyboard_->character(key);
    if (text_->trimmed(character).empty() || isControlCharacter(character))
        return "Key " + std::to_string(key);
    const auto capital = text_->capitalized(character);
    // ß stands on a key of its own and has no capital of one letter.
    return countOfCharacters(capital) == countOfCharacters(character) ? capital : character;
}

std::string KeyNames::displayString(const HotKeyShortcut& shortcut) const {
    std::string text;
    for (const auto& key : modifierKeys)
        if (shortcut.modifierFlags() & key.flag) text += key.glyph;
    return text + nameOf(shortcut.keyCode());
}

} // namespace tavrin
