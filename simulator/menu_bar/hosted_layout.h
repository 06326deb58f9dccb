#pragma once

#include "menu_bar/status_layout.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <span>
#include <vector>

namespace mac_model {

/// The status items of one display's menu bar as the agent of macOS 27 draws them: one run from the screen's
/// right edge to the notch or the menus, which it never passes. An item from half the screen's width on is
/// dropped whole and takes no room. What finds no room, and all left of it, stands behind the button "«" at
/// the left end.
struct HostedBar {
    std::vector<PlacedItem> items; // as layOutStatusItems has them; those behind the button have its frame
    std::optional<Rect> overflow;  // the button, while anything stands behind it

    const PlacedItem* find(StatusItemIdentifier) const;

    bool operator==(const HostedBar&) const = default;
};

HostedBar layOutHostedBar(std::span<const LayoutItem> items, const ScreenSpec&, const LayoutRules&);

} // namespace mac_model
