#include "movement/menu_bar_move_geometry.h"

#include "discovery/menu_bar_screen_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrin {

Rect MenuBarMoveGeometry::glyphFrame() const {
    const double width = std::min(std::max(glyphWidth, 0.0), std::max(controlFrame.width, 0.0));
    return {controlFrame.maxX() - width, controlFrame.y, width, controlFrame.height};
}

double MenuBarMoveGeometry::boundaryX() const {
    const double glyph = glyphFrame().minX();
    return spacerFrame ? std::min(glyph, spacerFrame->maxX()) : glyph;
}

namespace MenuBarMove {

namespace {

struct Span {
    double min;
    double max;

    double length() const { return max - min; }

    double middle() const { return min + length() / 2; }
};

Span overlap(Span a, Span b) { return {std::max(a.min, b.min), std::min(a.max, b.max)}; }

Span across(const Rect& rect) { return {rect.minX(), rect.maxX()}; }

Span down(const Rect& rect) { return {rect.minY(), rect.maxY()}; }

double overlapArea(const Rect& a, const Rect& b) {
    if (!a.intersects(b)) return 0;
    return overlap(across(a), across(b)).length() * overlap(down(a), down(b)).length();
}

/// The parts of an item's width that are drawn on the screen, left and right of a notch; the right one comes
/// first, to be chosen among equals. A part may be empty.
std::array<Span, 2> drawnParts(const Rect& item, const Screen& screen) {
    const Span onScreen = overlap(across(item), across(screen.frame));
    constexpr Span nothing{0, 0};
    if (!MenuBarScreenGeometry::hasNotch(screen)) return {onScreen, nothing};
    const Span right{screen.rightMenuBarArea->minX(), screen.frame.maxX()};
    const Span left{screen.frame.minX(), screen.leftMenuBarArea->maxX()};
    return {overlap(onScreen, right), overlap(onScreen, left)};
}

} // namespace

std::optional<Screen> menuBarScreen(const Rect& itemFrame, std::span<const Screen> screens) {
    const auto areaOn = [&](const Screen& screen) {
        return overlapArea(itemFrame, MenuBarScreenGeometry::menuBar(screen));
    };
    const auto best = std::ranges::max_element(screens, {}, areaOn);
    if (best == screens.end() || areaOn(*best) <= 0) return std::nullopt;
    return *best;
}

std::optional<Point> safeMenuBarGrabPoint(const Rect& itemFrame, const Screen& screen, double inset) {
    const auto parts = drawnParts(itemFrame, screen);
    const auto widest = *std::ranges::max_element(parts, {}, &Span::length);
    const auto height = overlap(down(itemFrame), down(MenuBarScreenGeometry::menuBar(screen)));
    if (widest.length() <= 0 || height.length() <= 0) return std::nullopt;
    if (std::min(widest.length(), height.length()) < 2 * inset) return std::nullopt;
    return Point{widest.middle(), height.middle()};
}

double destinationX(double itemWidth, MenuBarZone target, const MenuBarMoveGeometry& geometry) {
    if (target == MenuBarZone::visible)
        return geometry.glyphFrame().maxX() + std::min(0.35 * itemWidth, 24.0);
    return geometry.boundaryX() - std::max(itemWidth + 42, 62.0);
}

bool pathAvoidsNotch(double grabX, double destinationX, const Screen& screen) {
    if (!MenuBarScreenGeometry::hasNotch(screen)) return true;
    const double gapBegins = screen.leftMenuBarArea->maxX();
    const double gapEnds = screen.rightMenuBarArea->minX();
    return (grabX <= gapBegins && destinationX <= gapBegins) || (grabX >= gapEnds && destinationX >= gapEnds);
}

std::optional<Rect> windowRouteAnchor(MenuBarZone target, const MenuBarMoveGeometry& geometry) {
    if (target == MenuBarZone::visible) return geometry.visibleNeighborAccessibilityFrame;
    if (geometry.screens.empty()) return std::nullopt;
    return geometry.spacerFrame.value_or(geometry.controlFrame);
}

std::optional<Rect> visibleNeighbor(std::span<const Rect> visibleItems, const Rect& glyph,
                                    std::span<const Screen> screens) {
    using MenuBarScreenGeometry::reportedOverlap;
    std::optional<Rect> nearest;
    for (const auto& frame : visibleItems) {
        if (frame.minX() < glyph.maxX() - 2 * reportedOverlap) continue;
        if (!MenuBarScreenGeometry::isFullyVisibleInStatusLane(frame, screens, reportedOverlap)) continue;
        if (!nearest || frame.minX() < nearest->minX()) nearest = frame;
    }
    return nearest;
}

} // namespace MenuBarMove

} // namespace tavrin
