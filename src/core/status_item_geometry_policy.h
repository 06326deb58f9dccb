#pragma once

#include "discovery/menu_bar_screen_geometry.h"
#include "platform/geometry.h"
#include "platform/screens.h"

#include <algorithm>
#include <span>

namespace tavrin::StatusItemGeometryPolicy {

/// Whether a glyph lies whole in the status area of some screen's menu bar.
inline bool liesInStatusArea(const Rect& glyph, std::span<const Screen> screens) {
    if (!glyph.isFinite() || glyph.width <= 0 || glyph.height <= 0) return false;
    constexpr double slack = 1; // macOS 26 reports items a point wider on each side than their places
    return std::ranges::any_of(screens, [&](const Screen& screen) {
        const auto area = MenuBarScreenGeometry::statusArea(screen);
        return glyph.minX() >= area.minX() - slack && glyph.maxX() <= area.maxX() + slack &&
               glyph.minY() >= area.minY() - slack && glyph.maxY() <= area.maxY() + slack;
    });
}

/// Whether the spacer lies left of the control; a point of overlap is allowed.
inline bool isLeftOf(const Rect& spacer, const Rect& control) {
    return spacer.isFinite() && control.isFinite() && spacer.maxX() <= control.minX() + 1;
}

} // namespace tavrin::StatusItemGeometryPolicy
