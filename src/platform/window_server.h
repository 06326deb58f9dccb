#pragma once

#include "base/geometry.h"
#include "platform/accessibility.h"

#include <cstdint>
#include <expected>
#include <span>
#include <vector>

namespace tavrin {

namespace WindowServerMenuBar {

using Connection = std::int32_t;
using WindowNumber = std::uint32_t;

/// The answer of a function of the window server; 0 is success.
using Status = std::int32_t;

/// The window server's private functions, one call each. They judge nothing: counts and rectangles come as
/// the system gives them, in points with the origin at the top left. Cheap.
class Functions {
  public:
    virtual ~Functions() = default;

    /// This process's connection ("CGSMainConnectionID").
    virtual Connection mainConnection() = 0;

    /// The number of windows of all processes ("CGSGetWindowCount").
    virtual std::expected<std::int32_t, Status> windowCount(Connection connection) = 0;

    /// Writes the numbers of the menu bar's windows into `windows`, as many as fit, and answers how many the
    /// system says there are ("CGSGetProcessMenuBarWindowList").
    virtual std::expected<std::int32_t, Status> processMenuBarWindowList(Connection connection,
                                                                         std::span<WindowNumber> windows) = 0;

    /// Where a window is on the screen ("CGSGetScreenRectForWindow").
    virtual std::expected<Rect, Status> screenRect(Connection connection, WindowNumber window) = 0;
};

} // namespace WindowServerMenuBar

/// A window as the window server lists it.
struct OnScreenWindow {
    /// The layer of open menus and of what hangs from status items (kCGPopUpMenuWindowLevelKey).
    static constexpr int popUpMenuLayer = 101;
    /// The layers of the menu bar (kCGMainMenuWindowLevelKey) and of the items in it
    /// (kCGStatusWindowLevelKey).
    static constexpr int menuBarLayer = 24;
    static constexpr int statusItemLayer = 25;

    std::uint32_t number = 0;
    ProcessIdentifier owner = 0;
    int layer = 0;
    Rect frame;

    bool operator==(const OnScreenWindow&) const = default;
};

/// The window server beside what other families show of it. Main thread, except `onScreenWindows`.
class WindowServer {
  public:
    virtual ~WindowServer() = default;

    /// The private functions, looked up by name in all loaded images; null when any of the four is missing.
    /// Lives as long as this object.
    virtual WindowServerMenuBar::Functions* menuBarFunctions() = 0;

    /// All windows on the screens from front to back, but for those of the desktop. Empty when the system
    /// doesn't tell. Any thread.
    virtual std::vector<OnScreenWindow> onScreenWindows() const = 0;
};

} // namespace tavrin
