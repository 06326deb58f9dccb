#pragma once

#include "menu_bar/status_item_table.h"
#include "platform/window_server.h"
#include "system/behaviour.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

#include <vector>

namespace mac_model {

/// A window of the menu bar as the window server knows it.
struct MenuBarWindow {
    tavrin::WindowServerMenuBar::WindowNumber number = 0;
    Rect frame;
};

/// One window for each display's bar and, up to macOS 26, one for each status item of the primary screen,
/// wherever that stands.
class MenuBarWindows {
  public:
    MenuBarWindows(const StatusItemTable& items, const ProcessTable& processes, const ScreensModel& screens,
                   const Behaviour& behaviour)
        : items_(items)
        , processes_(processes)
        , screens_(screens)
        , behaviour_(behaviour) {}

    std::vector<MenuBarWindow> all() const;
    /// Null when no item has that window.
    const StatusItemRecord* itemWith(std::int64_t number) const;

  private:
    WindowReport reportOf(const StatusItemRecord&) const;

    const StatusItemTable& items_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const Behaviour& behaviour_;
};

} // namespace mac_model
