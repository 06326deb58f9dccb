#pragma once

#include "menu_bar/status_item_record.h"
#include "platform/window_server.h"

#include <vector>

namespace mac_model {

class Mac;

/// A window of the menu bar as the window server knows it.
struct MenuBarWindow {
    tavrin::WindowServerMenuBar::WindowNumber number = 0;
    tavrin::Rect frame;
};

/// One window for each display's bar and, up to macOS 26, one for each status item of the primary screen,
/// wherever that stands.
std::vector<MenuBarWindow> menuBarWindows(Mac&);

/// Null when no item has that window.
const StatusItemRecord* itemWithWindow(Mac&, std::int64_t number);

} // namespace mac_model
