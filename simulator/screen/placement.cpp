#include "screen/placement.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

namespace {

constexpr double edgeMargin = 8;
constexpr double arrowHeight = 8;
constexpr double menuRowInset = 5;
constexpr double menuMargin = 4; // at the screen's lower edge

double kept(double position, double least, double most) { return std::max(least, std::min(position, most)); }

Rect roomForMenus(const ScreenSpec& screen) {
    const Rect& frame = screen.frame;
    return {frame.x, frame.y + screen.menuBarHeight, frame.width,
            std::max(0.0, frame.height - screen.menuBarHeight - menuMargin)};
}

Rect inHeightOf(Rect room, Rect menu) {
    menu.height = std::min(menu.height, room.height);
    menu.y = kept(menu.y, room.minY(), room.maxY() - menu.height);
    return menu;
}

} // namespace

ScreenSpec screenFor(const std::vector<ScreenSpec>& screens, Point point) {
    for (const auto& screen : screens)
        if (screen.frame.contains(point)) return screen;
    if (!screens.empty()) return screens.front();
    ScreenSpec standIn;
    standIn.frame = {0, 0, 1024, 768};
    return standIn;
}

Rect windowFrame(Size size, const ScreenSpec& screen) {
    const Rect& frame = screen.frame;
    const double top = frame.minY() + screen.menuBarHeight;
    const double room = std::max(0.0, frame.maxY() - top - size.height);
    return {std::round(frame.midX() - size.width / 2), std::round(top + room * 0.4), size.width, size.height};
}

Rect windowFrameBelowMenuBar(Size size, const ScreenSpec& screen) {
    const Rect& frame = screen.frame;
    const double x = std::max(frame.minX(), frame.maxX() - edgeMargin - size.width);
    return {std::round(x), frame.minY() + screen.menuBarHeight + edgeMargin, size.width, size.height};
}

Rect popoverFrame(Size size, Rect area, const ScreenSpec& screen) {
    const double y = area.maxY() + arrowHeight;
    const double x = kept(std::round(area.midX() - size.width / 2), screen.frame.minX() + edgeMargin,
                          screen.frame.maxX() - edgeMargin - size.width);
    return {x, y, size.width, std::min(size.height, std::max(0.0, screen.frame.maxY() - edgeMargin - y))};
}

/// Items and titles may be lower than the menu bar, but their menus begin where it ends.
Rect menuFrame(Size size, Rect area, const ScreenSpec& screen) {
    const auto room = roomForMenus(screen);
    const double top = area.minY() < room.minY() ? std::max(area.maxY(), room.minY()) : area.maxY();
    return {kept(area.minX(), room.minX(), room.maxX() - size.width), top, size.width,
            std::min(size.height, std::max(0.0, room.maxY() - top))};
}

Rect contextMenuFrame(Size size, Point point, const ScreenSpec& screen) {
    const auto room = roomForMenus(screen);
    const bool fitsRight = point.x + size.width <= room.maxX();
    const double x = fitsRight ? point.x : std::max(room.minX(), point.x - size.width);
    return inHeightOf(room, {x, point.y, size.width, size.height});
}

Rect submenuFrame(Size size, Rect entry, const ScreenSpec& screen) {
    const auto room = roomForMenus(screen);
    const bool fitsRight = entry.maxX() + size.width <= room.maxX();
    const double x = fitsRight ? entry.maxX() : std::max(room.minX(), entry.minX() - size.width);
    return inHeightOf(room, {x, entry.minY() - menuRowInset, size.width, size.height});
}

} // namespace mac_model
