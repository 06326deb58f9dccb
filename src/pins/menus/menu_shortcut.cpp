#include "pins/menus/menu_shortcut.h"

namespace tavrin {

namespace {

// Bits of AXMenuItemCmdModifiers.
constexpr int shiftBit = 1;
constexpr int optionBit = 2;
constexpr int controlBit = 4;
constexpr int noCommandBit = 8;

} // namespace

std::optional<std::string> menuShortcut(const std::optional<std::string>& character,
                                        std::optional<int> modifiers) {
    if (!character || character->empty()) return std::nullopt;
    const int bits = modifiers.value_or(0);
    std::string text;
    if ((bits & controlBit) != 0) text += "⌃";
    if ((bits & optionBit) != 0) text += "⌥";
    if ((bits & shiftBit) != 0) text += "⇧";
    if ((bits & noCommandBit) == 0) text += "⌘";
    return text + *character;
}

} // namespace tavrin
