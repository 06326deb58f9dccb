#include "native/policy/notch_rescue_policy.h"

#include "discovery/menu_bar_screen_geometry.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tavrin::NotchRescuePolicy {

namespace {

using MenuBarScreenGeometry::hasNotch;

constexpr double stripHeightMax = 44;
constexpr double laneMargin = 1;
constexpr double stackedDistance = 4;

Rect topStrip(const Screen& screen) {
    const auto& frame = screen.frame;
    return {frame.x, frame.y, frame.width, std::min(frame.height, stripHeightMax)};
}

/// The menu bar, wide enough to find every item that belongs to it.
Rect band(const Screen& screen) {
    if (!screen.leftMenuBarArea || !screen.rightMenuBarArea) return topStrip(screen);
    const double top = std::min(screen.leftMenuBarArea->minY(), screen.rightMenuBarArea->minY());
    const double bottom = std::max(screen.leftMenuBarArea->maxY(), screen.rightMenuBarArea->maxY());
    return {screen.frame.x, top, screen.frame.width, bottom - top};
}

Rect lane(const Screen& screen) { return hasNotch(screen) ? *screen.rightMenuBarArea : topStrip(screen); }

double distanceAcross(const Rect& item, const Screen& screen) {
    const double middle = item.middle().x;
    return std::max({screen.frame.minX() - middle, middle - screen.frame.maxX(), 0.0});
}

const Screen* nearestNotched(const Rect& item, std::span<const Screen> screens) {
    const Screen* nearest = nullptr;
    for (const auto& screen : screens) {
        const bool isNearer = !nearest || distanceAcross(item, screen) < distanceAcross(item, *nearest);
        if (hasNotch(screen) && isNearer) nearest = &screen;
    }
    return nearest;
}

/// Null when no screen has a notch and the item stands in no menu bar.
const Screen* screenOf(const Rect& item, std::span<const Screen> screens) {
    const auto found =
        std::ranges::find_if(screens, [&](const Screen& screen) { return item.intersects(band(screen)); });
    return found != screens.end() ? &*found : nearestNotched(item, screens);
}

bool contains(const Rect& lane, const Rect& item) {
    const bool overlapsVertically = item.minY() < lane.maxY() && item.maxY() > lane.minY();
    return overlapsVertically && lane.minX() + laneMargin <= item.minX() &&
           item.maxX() <= lane.maxX() - laneMargin;
}

bool areStacked(const MenuBarItemSnapshot& item, const MenuBarItemSnapshot& other) {
    if (other.id == item.id || other.frame.width <= 0 || other.frame.height <= 0) return false;
    const double rowHeight = std::max(item.frame.height, 1.0);
    return std::abs(item.frame.middle().y - other.frame.middle().y) <= rowHeight &&
           std::abs(item.frame.minX() - other.frame.minX()) < stackedDistance;
}

bool isTrapped(const MenuBarItemSnapshot& item, std::span<const MenuBarItemSnapshot> items,
               std::span<const Screen> screens) {
    if (item.isParked || item.frame.width <= 0 || item.frame.height <= 0) return true;
    const auto* screen = screenOf(item.frame, screens);
    if (!screen || !hasNotch(*screen)) return false;
    const auto isIn = [&](const Screen& one) { return contains(lane(one), item.frame); };
    return std::ranges::none_of(screens, isIn) ||
           std::ranges::any_of(items, [&](const auto& other) { return areStacked(item, other); });
}

} // namespace

std::vector<MenuBarItemSnapshot> trappedItems(std::span<const MenuBarItemSnapshot> items,
                                              std::span<const Screen> screens) {
    std::vector<MenuBarItemSnapshot> trapped;
    if (std::ranges::none_of(screens, hasNotch)) return trapped;
    std::ranges::copy_if(items, std::back_inserter(trapped),
                         [&](const auto& item) { return isTrapped(item, items, screens); });
    return trapped;
}

} // namespace tavrin::NotchRescuePolicy
