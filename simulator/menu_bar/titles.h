#pragma once

#include "base/geometry.h"
#include "desktop/desktop_file.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <vector>

namespace mac_model {

/// One title in the left part of a menu bar.
struct MenuTitle {
    std::string title;
    Rect frame;
};

/// The titles that this application shows on the screen's menu bar, from left to right: the Apple menu
/// ("Apple"), the application's own by its name, then those of its `menuBar`. Titles that would meet a notch
/// stand right of it.
std::vector<MenuTitle> menuTitles(const ApplicationSpec&, const ScreenSpec&);

/// Where the titles end; the screen's left edge when there is no application.
double menusEnd(const ApplicationSpec* application, const ScreenSpec&);

/// The entries of the menu under the n-th of these titles; none beyond the last.
std::vector<MenuItemSpec> menuUnderTitle(const ApplicationSpec&, std::size_t title);

} // namespace mac_model
