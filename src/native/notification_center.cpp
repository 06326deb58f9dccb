#include "native/notification_center.h"

#include <algorithm>
#include <optional>
#include <string>

namespace tavrin {

bool isNotificationCenterPresented(const Workspace& workspace, const WindowServer& windows) {
    constexpr double noticeHeightMax = 300; // points
    const auto running = workspace.runningApplications();
    const auto center =
        std::ranges::find(running, std::optional<std::string>("com.apple.notificationcenterui"),
                          &RunningApplication::bundleIdentifier);
    if (center == running.end()) return false;
    return std::ranges::any_of(windows.onScreenWindows(), [&](const OnScreenWindow& window) {
        return window.owner == center->processIdentifier && window.frame.height > noticeHeightMax;
    });
}

} // namespace tavrin
