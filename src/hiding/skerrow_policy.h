#pragma once

#include "discovery/menu_bar_item.h"
#include "platform/screens.h"

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// Identifiers of items that the user wants hidden.
using HiddenSet = std::set<std::string>;

/// Compares where the items are with where the user wants them.
class SkerrowPolicy {
  public:
    /// Takes all items but those of `ownBundleIdentifier`, in their order.
    SkerrowPolicy(std::span<const MenuBarItem> items, const HiddenSet& hiddenItemIdentifiers,
                  std::string_view ownBundleIdentifier);

    const std::vector<MenuBarItemAssignment>& assignments() const { return assignments_; }

    /// The items that are wanted hidden and still lie where hiding would leave them on the screen.
    std::vector<MenuBarItemAssignment> pendingMoves() const;

    /// The items that are wanted visible and lie where hiding would take them away.
    std::vector<MenuBarItemAssignment> trayOverflow() const;

  private:
    std::vector<MenuBarItemAssignment> misplaced(MenuBarZone desired) const;

    std::vector<MenuBarItemAssignment> assignments_;
};

/// Whether the user wants the item hidden.
bool isConfiguredHidden(const MenuBarItemSnapshot& item, const HiddenSet& hiddenItemIdentifiers);

/// The hidden set after the user has hidden or shown this one item.
HiddenSet settingItem(const std::string& itemIdentifier, bool hidden, HiddenSet set);

/// The spacer's length in points that pushes everything left of it off every screen.
double collapsedSpacerLength(std::span<const Screen> screens);

} // namespace tavrin
