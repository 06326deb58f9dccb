#pragma once

#include "platform/screens.h"

#include <span>

namespace tavrin::MenuBarScreenGeometry {

/// The menu bar strip at the top of the screen.
inline Rect menuBar(const Screen& screen) {
    return {screen.frame.x, screen.frame.y, screen.frame.width, screen.menuBarHeight};
}

/// A notch is there when both menu bar areas are known and the left one ends before the right one begins.
inline bool hasNotch(const Screen& screen) {
    return screen.leftMenuBarArea && screen.rightMenuBarArea &&
           screen.leftMenuBarArea->maxX() < screen.rightMenuBarArea->minX();
}

/// The right-hand part of the menu bar: right of the notch, or the whole bar on a screen without one.
inline Rect statusArea(const Screen& screen) {
    auto area = menuBar(screen);
    if (hasNotch(screen)) {
        area.x = screen.rightMenuBarArea->x;
        area.width = screen.frame.maxX() - area.x;
    }
    return area;
}

} // namespace tavrin::MenuBarScreenGeometry
