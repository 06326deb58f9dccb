#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <string>
#include <vector>

namespace mac_model {

Size menuSize(const std::vector<MenuItemSpec>&);

/// The entries from top to bottom, in a menu with this frame.
std::vector<MenuRow> menuRows(std::vector<MenuItemSpec>, Rect frame);

/// Such as "⇧⌘N"; empty when the entry has no key equivalent.
std::string keyEquivalentText(const MenuItemSpec&);

/// Whether it can be chosen: enabled, with no submenu, and no separator.
bool isChoosable(const MenuItemSpec&);

/// The first entry with this key equivalent that can be chosen, submenus included.
std::optional<std::vector<std::size_t>>
pathOfKeyEquivalent(const std::vector<MenuItemSpec>&, std::string_view key, const std::vector<Modifier>&);

/// Null when there is none.
const MenuItemSpec* entryAt(const std::vector<MenuItemSpec>&, const std::vector<std::size_t>& path);

std::vector<std::string> titlesAlong(const std::vector<MenuItemSpec>&, const std::vector<std::size_t>& path);

} // namespace mac_model
