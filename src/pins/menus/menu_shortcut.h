#pragma once

#include <optional>
#include <string>

namespace tavrin {

/// "⌃⌥⇧⌘" as far as they belong to a key equivalent, and its character; none without one. `modifiers` are the
/// bits of AXMenuItemCmdModifiers.
std::optional<std::string> menuShortcut(const std::optional<std::string>& character,
                                        std::optional<int> modifiers);

} // namespace tavrin
