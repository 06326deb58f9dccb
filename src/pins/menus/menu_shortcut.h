#pragma once

#include <optional>
#include <string>

namespace tavrin {

/// A key equivalent as text: those of "⌃⌥⇧⌘" that belong to it, then its character; none without a character.
/// `modifiers` are the bits of AXMenuItemCmdModifiers.
std::optional<std::string> menuShortcut(const std::optional<std::string>& character,
                                        std::optional<int> modifiers);

} // namespace tavrin
