// The window server: its public list, and the private functions that are looked up by name.
#include "answering_mac.h"
#include "platform/window_server.h"
#include "told.h"

#import <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <span>
#include <unistd.h>
#include <vector>

namespace {

using tavrin::OnScreenWindow;
using tavrin::WindowServerMenuBar::Connection;
using tavrin::WindowServerMenuBar::Functions;
using tavrin::WindowServerMenuBar::Status;
using tavrin::WindowServerMenuBar::WindowNumber;

constexpr Status illegalArgument = 1001; // kCGErrorIllegalArgument

NSDictionary* entryFor(const OnScreenWindow& window) {
    NSDictionary* bounds = @{
        @"X" : @(window.frame.x),
        @"Y" : @(window.frame.y),
        @"Width" : @(window.frame.width),
        @"Height" : @(window.frame.height)
    };
    return @{
        (__bridge NSString*)kCGWindowNumber : @(window.number),
        (__bridge NSString*)kCGWindowLayer : @(window.layer),
        (__bridge NSString*)kCGWindowOwnerPID : @(window.owner),
        (__bridge NSString*)kCGWindowBounds : bounds
    };
}

OnScreenWindow described(NSWindow* window) {
    const NSRect frame = window.frame;
    const double top = NSHeight(NSScreen.mainScreen.frame) - NSMaxY(frame);
    return {.number = static_cast<std::uint32_t>(window.windowNumber),
            .owner = getpid(),
            .layer = static_cast<int>(window.level),
            .frame = {frame.origin.x, top, frame.size.width, frame.size.height}};
}

std::vector<OnScreenWindow> ownWindows() {
    std::vector<OnScreenWindow> windows;
    for (NSWindow* window in NSApp.windows)
        if (window.isVisible) windows.push_back(described(window));
    return windows;
}

Functions* functions() { return answeringMac() ? answeringMac()->windowServer.menuBarFunctions() : nullptr; }

/// Zero, and the value put in its place; or the status.
template <class Value>
Status given(const std::expected<Value, Status>& result, Value* place) {
    if (!result) return result.error();
    *place = *result;
    return 0;
}

} // namespace

extern "C" {

const CGRect CGRectZero = {{0, 0}, {0, 0}};
const CFStringRef kCGWindowNumber = (__bridge CFStringRef) @"kCGWindowNumber";
const CFStringRef kCGWindowLayer = (__bridge CFStringRef) @"kCGWindowLayer";
const CFStringRef kCGWindowBounds = (__bridge CFStringRef) @"kCGWindowBounds";
const CFStringRef kCGWindowOwnerPID = (__bridge CFStringRef) @"kCGWindowOwnerPID";

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect* rect) {
    NSDictionary* given = (__bridge NSDictionary*)dictionary;
    for (NSString* key in @[ @"X", @"Y", @"Width", @"Height" ])
        if (!given[key]) return false;
    *rect = NSMakeRect([given[@"X"] doubleValue], [given[@"Y"] doubleValue], [given[@"Width"] doubleValue],
                       [given[@"Height"] doubleValue]);
    return true;
}

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption, CGWindowID) {
    if (const auto* told = toldFor(__func__)) return (CFArrayRef)told->retained();
    NSMutableArray* list = [NSMutableArray array];
    for (const auto& window : answeringMac() ? answeringMac()->windowServer.onScreenWindows() : ownWindows())
        [list addObject:entryFor(window)];
    return (__bridge_retained CFArrayRef)list;
}

Connection CGSMainConnectionID(void) { return functions() ? functions()->mainConnection() : 0; }

Status CGSGetWindowCount(Connection connection, Connection, std::int32_t* count) {
    if (const auto* told = toldFor(__func__)) return told->status;
    return functions() ? given(functions()->windowCount(connection), count) : illegalArgument;
}

Status CGSGetProcessMenuBarWindowList(Connection connection, Connection, std::int32_t capacity,
                                      WindowNumber* windows, std::int32_t* count) {
    if (const auto* told = toldFor(__func__)) return told->status;
    if (!functions()) return illegalArgument;
    const std::span room(windows, static_cast<std::size_t>(capacity));
    return given(functions()->processMenuBarWindowList(connection, room), count);
}

Status CGSGetScreenRectForWindow(Connection connection, WindowNumber window, CGRect* rect) {
    if (const auto* told = toldFor(__func__)) return told->status;
    if (!functions()) return illegalArgument;
    const auto found = functions()->screenRect(connection, window);
    if (!found) return found.error();
    *rect = NSMakeRect(found->x, found->y, found->width, found->height);
    return 0;
}
}
