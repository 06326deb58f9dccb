#pragma once

#include "platform/screens.h"

#include <algorithm>
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

/// Whether the item waits at the lower left corner of the primary screen, as the windows of items do that
/// macOS 26 and later don't let into the menu bar: their top left was seen a point left of it and a point
/// above.
inline bool isParked(const Rect& itemFrame, std::span<const Screen> screens) {
    constexpr double tolerance = 8; // the button may be smaller than its window
    if (screens.empty()) return false;
    const auto& primary = screens.front().frame;
    return itemFrame.minX() <= primary.minX() + tolerance && itemFrame.minY() >= primary.maxY() - tolerance;
}

/// macOS 26 reports items wider than their places by this many points on each side.
inline constexpr double reportedOverlap = 1;

/// Whether the item, less `inset` points at each edge, lies in the status area of some screen's menu bar.
inline bool isFullyVisibleInStatusLane(const Rect& itemFrame, std::span<const Screen> screens, double inset) {
    if (!itemFrame.isFinite() || itemFrame.width <= 0 || itemFrame.height <= 0) return false;
    return std::ranges::any_of(screens, [&](const Screen& screen) {
        const auto area = statusArea(screen);
        return itemFrame.minX() + inset >= area.minX() && itemFrame.maxX() - inset <= area.maxX() &&
               itemFrame.minY() + inset >= area.minY() && itemFrame.maxY() - inset <= area.maxY();
    });
}

} // namespace tavrin::MenuBarScreenGeometry
