#include "hiding/menu_bar_sight.h"

#include "discovery/menu_bar_screen_geometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavrin {

namespace {

/// Points by which windows of the menu bar were seen to differ from its height.
constexpr double heightTolerance = 6;

/// The bar itself, or an item in it. At least the clock is in every bar that is visible.
bool standsIn(const OnScreenWindow& window, const Screen& screen) {
    const bool isOfBar =
        window.layer == OnScreenWindow::menuBarLayer || window.layer == OnScreenWindow::statusItemLayer;
    const auto bar = MenuBarScreenGeometry::menuBar(screen);
    return isOfBar && window.frame.height <= bar.height + heightTolerance &&
           bar.contains(window.frame.middle());
}

/// The screen whose bar an item belongs to, which may stand off the top of it.
const Screen* screenOf(const Rect& item, const std::vector<Screen>& screens) {
    const Screen* nearest = nullptr;
    const auto distance = [&](const Screen& screen) { return std::abs(item.y - screen.frame.y); };
    for (const auto& screen : screens) {
        const bool isAcross = item.maxX() > screen.frame.x && item.x < screen.frame.maxX();
        if (isAcross && (!nearest || distance(screen) < distance(*nearest))) nearest = &screen;
    }
    return nearest;
}

} // namespace

bool MenuBarSight::isVisible(std::optional<Rect> itemFrame) const {
    if (!screens_.areShown()) return false;
    const auto windows = windows_.onScreenWindows();
    if (windows.empty()) return true; // the system doesn't tell
    const auto screens = screens_.screens();
    const auto* only = itemFrame ? screenOf(*itemFrame, screens) : nullptr;
    return std::ranges::any_of(screens, [&](const Screen& screen) {
        return (!only || only == &screen) &&
               std::ranges::any_of(windows, [&](const auto& window) { return standsIn(window, screen); });
    });
}

} // namespace tavrin
