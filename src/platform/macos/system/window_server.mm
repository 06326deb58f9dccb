#include "platform/macos/system/window_server.h"

#include "platform/macos/support/cf_reference.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <algorithm>
#include <dlfcn.h>
#include <limits>

namespace tavrin::macos {

namespace {

using WindowServerMenuBar::Connection;
using WindowServerMenuBar::Status;
using WindowServerMenuBar::WindowNumber;

// The functions stand in no header of Apple's. A target connection of 0 means all processes.
using MainConnection = Connection();
using WindowCount = Status(Connection connection, Connection target, std::int32_t* count);
using MenuBarWindowList = Status(Connection connection, Connection target, std::int32_t capacity,
                                 WindowNumber* windows, std::int32_t* count);
using ScreenRect = Status(Connection connection, WindowNumber window, CGRect* rect);
constexpr Connection allProcesses = 0;

template <class Function>
Function* lookedUp(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

class LookedUpFunctions final : public WindowServerMenuBar::Functions {
  public:
    bool areAllThere() const { return mainConnection_ && windowCount_ && menuBarWindowList_ && screenRect_; }

    Connection mainConnection() override {
        assertMainThread();
        return mainConnection_();
    }

    std::expected<std::int32_t, Status> windowCount(Connection connection) override {
        assertMainThread();
        std::int32_t count = 0;
        if (const auto status = windowCount_(connection, allProcesses, &count))
            return std::unexpected(status);
        return count;
    }

    std::expected<std::int32_t, Status> processMenuBarWindowList(Connection connection,
                                                                 std::span<WindowNumber> windows) override {
        assertMainThread();
        constexpr std::size_t capacityMax = std::numeric_limits<std::int32_t>::max();
        const auto capacity = static_cast<std::int32_t>(std::min(windows.size(), capacityMax));
        std::int32_t count = 0;
        if (const auto status =
                menuBarWindowList_(connection, allProcesses, capacity, windows.data(), &count))
            return std::unexpected(status);
        return count;
    }

    std::expected<Rect, Status> screenRect(Connection connection, WindowNumber window) override {
        assertMainThread();
        CGRect rect = CGRectZero;
        if (const auto status = screenRect_(connection, window, &rect)) return std::unexpected(status);
        return rectFromQuartz(rect);
    }

  private:
    MainConnection* mainConnection_ = lookedUp<MainConnection>("CGSMainConnectionID");
    WindowCount* windowCount_ = lookedUp<WindowCount>("CGSGetWindowCount");
    MenuBarWindowList* menuBarWindowList_ = lookedUp<MenuBarWindowList>("CGSGetProcessMenuBarWindowList");
    ScreenRect* screenRect_ = lookedUp<ScreenRect>("CGSGetScreenRectForWindow");
};

std::int64_t numberIn(NSDictionary* window, CFStringRef key) {
    id value = window[(__bridge NSString*)key];
    return [value isKindOfClass:[NSNumber class]] ? [value longLongValue] : 0;
}

OnScreenWindow windowFrom(NSDictionary* window) {
    OnScreenWindow found;
    found.number = static_cast<std::uint32_t>(numberIn(window, kCGWindowNumber));
    found.owner = static_cast<ProcessIdentifier>(numberIn(window, kCGWindowOwnerPID));
    found.layer = static_cast<int>(numberIn(window, kCGWindowLayer));
    CGRect bounds = CGRectZero;
    id given = window[(__bridge NSString*)kCGWindowBounds];
    if ([given isKindOfClass:[NSDictionary class]])
        CGRectMakeWithDictionaryRepresentation((__bridge CFDictionaryRef)given, &bounds);
    found.frame = rectFromQuartz(bounds);
    return found;
}

} // namespace

MacWindowServer::MacWindowServer() {
    auto functions = std::make_unique<LookedUpFunctions>();
    if (functions->areAllThere()) functions_ = std::move(functions);
}

MacWindowServer::~MacWindowServer() = default;

std::vector<OnScreenWindow> MacWindowServer::onScreenWindows() const {
    @autoreleasepool {
        const auto list = CfReference<CFArrayRef>::adopting(CGWindowListCopyWindowInfo(
            kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements, kCGNullWindowID));
        std::vector<OnScreenWindow> windows;
        for (NSDictionary* window in (__bridge NSArray*)list.get()) windows.push_back(windowFrom(window));
        return windows;
    }
}

} // namespace tavrin::macos
