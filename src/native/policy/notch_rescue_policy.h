#pragma once

#include "discovery/menu_bar_item.h"
#include "platform/screens.h"

#include <span>
#include <vector>

namespace tavrin::NotchRescuePolicy {

/// The items that nobody can see because of a notch: behind it, left of it, outside the menu bar, or stacked
/// on another one. In their order; none without a notched screen.
std::vector<MenuBarItemSnapshot> trappedItems(std::span<const MenuBarItemSnapshot> items,
                                              std::span<const Screen> screens);

} // namespace tavrin::NotchRescuePolicy
