#pragma once

#include "discovery/menu_bar_item.h"

#include <optional>
#include <vector>

namespace tavrin {

/// The result of one scan of the menu bar.
struct ScanResult {
    std::vector<MenuBarItemSnapshot> items; // of other applications, in the order of the menu bar
    bool isDenied = false; // nothing is known: no Accessibility trust, or macOS refused the messages
    std::vector<ProcessIdentifier> unanswered{}; // of applications whose items are unknown

    // Since macOS 27, from the agent that draws the menu bar.
    std::vector<Rect> clockFrames{}; // on all displays
    std::optional<int>
        ownItemCount{}; // of this program, as far as the agent draws them; none when it is silent
};

} // namespace tavrin
