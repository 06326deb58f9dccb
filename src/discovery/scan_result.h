#pragma once

#include "discovery/menu_bar_item.h"

#include <vector>

namespace tavrin {

/// The result of one scan of the menu bar.
struct ScanResult {
    std::vector<MenuBarItemSnapshot> items; // of other applications, in the order of the menu bar
    bool isDenied = false; // nothing is known: no Accessibility trust, or macOS refused the messages
};

} // namespace tavrin
