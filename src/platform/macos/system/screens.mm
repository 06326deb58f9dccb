#include "platform/macos/system/screens.h"

#include "platform/macos/support/cf_reference.h"
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

/// A key of the session's dictionary that stands in no header; it is there only while the screen is locked.
NSString* const screenIsLockedKey = @"CGSSessionScreenIsLocked";

/// No session is told outside of one, where nothing is locked either.
bool isSessionShown() {
    const auto session = CfReference<CFDictionaryRef>::adopting(CGSessionCopyCurrentDictionary());
    NSDictionary* told = (__bridge NSDictionary*)session.get();
    const auto isYes = [told](NSString* key) {
        id value = told[key];
        return [value isKindOfClass:[NSNumber class]] && [value boolValue];
    };
    return !told || (isYes((__bridge NSString*)kCGSessionOnConsoleKey) && !isYes(screenIsLockedKey));
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

bool MacScreens::areShown() const {
    assertMainThread();
    return !CGDisplayIsAsleep(CGMainDisplayID()) && isSessionShown();
}

Subscription MacScreens::onShownChanged(std::function<void()> handler) {
    auto* center = NSWorkspace.sharedWorkspace.notificationCenter;
    const auto after = [&](NSNotificationName name) { return observe(scheduler_, center, name, handler); };
    // The last one's name is in no header.
    return together(after(NSWorkspaceActiveSpaceDidChangeNotification),
                    after(NSWorkspaceScreensDidWakeNotification),
                    after(NSWorkspaceSessionDidBecomeActiveNotification),
                    observeDistributed(scheduler_, @"com.apple.screenIsUnlocked", handler));
}

} // namespace tavrin::macos
