#include "platform/macos/system/screens.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"
#include "platform/menu_bar_height.h"

namespace tavrin::macos {

namespace {

/// Empty on a screen without a notch.
std::optional<Rect> areaFrom(NSRect area, double primaryHeight) {
    if (NSIsEmptyRect(area)) return std::nullopt;
    return flipped(rectFromQuartz(area), primaryHeight);
}

double menuBarHeightOf(NSScreen* screen) {
    return menuBarHeight({.reservedAtTop = NSMaxY(screen.frame) - NSMaxY(screen.visibleFrame),
                          .notchHeight = screen.safeAreaInsets.top,
                          .mainMenuHeight = NSApp.mainMenu.menuBarHeight});
}

Screen screenFrom(NSScreen* screen, double primaryHeight) {
    return {.frame = flipped(rectFromQuartz(screen.frame), primaryHeight),
            .scale = screen.backingScaleFactor,
            .menuBarHeight = menuBarHeightOf(screen),
            .leftMenuBarArea = areaFrom(screen.auxiliaryTopLeftArea, primaryHeight),
            .rightMenuBarArea = areaFrom(screen.auxiliaryTopRightArea, primaryHeight)};
}

} // namespace

std::vector<Screen> MacScreens::screens() const {
    assertMainThread();
    const auto primaryHeight = primaryScreenHeight();
    std::vector<Screen> screens;
    for (NSScreen* screen in NSScreen.screens) screens.push_back(screenFrom(screen, primaryHeight));
    return screens;
}

Subscription MacScreens::onChanged(std::function<void()> handler) {
    return observe(scheduler_, NSNotificationCenter.defaultCenter,
                   NSApplicationDidChangeScreenParametersNotification, std::move(handler));
}

} // namespace tavrin::macos
