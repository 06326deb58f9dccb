#include "seam_check/item_sight.h"

#include "platform/screens.h"
#include "platform/workspace.h"
#include "seam_check/words.h"

#include <algorithm>
#include <cmath>

namespace tavrin::seam_check {

namespace {

constexpr int firstVersionWithoutItemWindows = 27;
constexpr double paddingMax = 24; // of a window around its button, both sides together

bool isWindowOf(const OnScreenWindow& window, const Rect& frame) {
    return window.layer == OnScreenWindow::statusItemLayer && window.frame.intersects(frame) &&
           std::abs(window.frame.midX() - frame.midX()) <= 2 * itemSlack &&
           std::abs(window.frame.width - frame.width) <= paddingMax;
}

std::optional<OnScreenWindow> windowAt(const Platform& platform, const Rect& frame) {
    for (const auto& window : platform.windowServer.onScreenWindows())
        if (isWindowOf(window, frame)) return window;
    return std::nullopt;
}

bool isBesideNotches(const Platform& platform, const Rect& frame) {
    return std::ranges::none_of(platform.screens.screens(), [&](const Screen& screen) {
        if (!screen.leftMenuBarArea || !screen.rightMenuBarArea) return false;
        return frame.maxX() > screen.leftMenuBarArea->maxX() &&
               frame.minX() < screen.rightMenuBarArea->minX();
    });
}

} // namespace

bool ItemSight::isSeen() const { return isDrawn && isInMenuBar && (window || !areItemsListed); }

bool ItemSight::agrees() const {
    if (isDrawn) return isSeen();
    return !isInMenuBar || !window || !isBesideNotch;
}

ItemSight lookAt(const Platform& platform, const StatusItem& item) {
    ItemSight sight;
    sight.isDrawn = item.isDrawn();
    sight.frame = item.frame();
    sight.areItemsListed = platform.workspace.operatingSystemVersion().major < firstVersionWithoutItemWindows;
    if (!sight.frame || sight.frame->height <= 0) return sight;
    sight.isInMenuBar = isInAMenuBar(platform, *sight.frame);
    sight.isBesideNotch = isBesideNotches(platform, *sight.frame);
    if (sight.areItemsListed) sight.window = windowAt(platform, *sight.frame);
    return sight;
}

std::string said(const ItemSight& sight) {
    const auto listed = !sight.areItemsListed ? std::string("this macOS lists no items")
                        : sight.window        ? "listed as " + said(sight.window->frame)
                                              : std::string("not listed there");
    return std::string(sight.isDrawn ? "drawn" : "not drawn") + ", frame " + said(sight.frame) + ", " +
           listed;
}

bool isInAMenuBar(const Platform& platform, const Rect& frame) {
    return std::ranges::any_of(platform.screens.screens(), [&](const Screen& screen) {
        const auto& whole = screen.frame;
        return frame.minY() >= whole.minY() - 1 &&
               frame.maxY() <= whole.minY() + screen.menuBarHeight + itemSlack &&
               frame.maxX() > whole.minX() && frame.minX() < whole.maxX();
    });
}

} // namespace tavrin::seam_check
