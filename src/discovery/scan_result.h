#pragma once

#include "discovery/menu_bar_item.h"

#include <vector>

namespace tavrin {

/// What one scan of the menu bar has found.
struct ScanResult {
    std::vector<MenuBarItemSnapshot> items; // of other applications, in the order of the menu bar
    bool isDenied = false;                  // without Accessibility trust nothing is known
};

} // namespace tavrin
