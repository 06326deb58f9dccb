#pragma once

#include "base/geometry.h"
#include "platform/screens.h"
#include "platform/window_server.h"

#include <optional>

namespace tavrin {

/// Tells whether the user can see the menu bar. In full screen, while it hides by itself, behind a locked
/// screen and on a sleeping display macOS draws no item, and may say that all stand above the screen: what is
/// missing then has not gone. Main thread.
class MenuBarSight {
  public:
    MenuBarSight(const Screens& screens, const WindowServer& windows)
        : screens_(screens)
        , windows_(windows) {}

    /// The bar with the item that has this frame; without one, the bar of any screen. Takes about a
    /// millisecond, so it is asked only when something is missing.
    bool isVisible(std::optional<Rect> itemFrame) const;

  private:
    const Screens& screens_;
    const WindowServer& windows_;
};

} // namespace tavrin
