#include "platform/macos/presentation/window.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/key_window.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"
#include "views/view_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

@interface TavrinWindowDelegate : NSObject <NSWindowDelegate>
@property(nonatomic, copy) void (^onClose)(void);
@end

@implementation TavrinWindowDelegate

- (void)windowWillClose:(NSNotification*)notification {
    if (self.onClose) self.onClose();
}

@end

namespace tavrin::macos {

namespace {

constexpr double edgeMargin = 8;

NSWindow* makeTitledWindow(std::string_view title) {
    NSWindow* window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                                      backing:NSBackingStoreBuffered
                                        defer:YES];
    window.releasedWhenClosed = NO; // else closing takes a reference that ARC counts as ours
    window.restorable = NO;
    window.title = localized(title);
    window.collectionBehavior =
        NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorFullScreenAuxiliary;
    return window;
}

/// The frame for content of this size: its upper edge and its middle stay where they are.
NSRect frameFor(NSWindow* window, NSSize content) {
    const NSRect old = window.frame;
    const NSSize size = [window frameRectForContentRect:NSMakeRect(0, 0, content.width, content.height)].size;
    return NSMakeRect(std::round(NSMidX(old) - size.width / 2), NSMaxY(old) - size.height, size.width,
                      size.height);
}

} // namespace

MacWindow::MacWindow(Scheduler& scheduler, std::string_view title, std::function<void()> onClose)
    : gate_(scheduler)
    , onClose_(std::move(onClose))
    , renderer_(gate_.deliver())
    , window_(makeTitledWindow(title))
    , delegate_([[TavrinWindowDelegate alloc] init])
    , activations_(observe(scheduler, NSNotificationCenter.defaultCenter,
                           NSApplicationDidBecomeActiveNotification, [this] { takeKeysIfFree(window_); })) {
    assertMainThread();
    window_.contentView = renderer_.surface();
    window_.delegate = delegate_;
    // The destructor takes it back.
    delegate_.onClose = ^{
        gate_.deliver()(onClose_);
    };
}

MacWindow::~MacWindow() {
    assertMainThread();
    delegate_.onClose = nil;
    window_.delegate = nil;
    renderer_.letGo();
    [window_ close];
}

void MacWindow::setContent(View content) {
    renderer_.setContent(std::move(content));
    const NSSize size = layOut();
    [window_ setFrame:frameFor(window_, size) display:YES];
}

NSSize MacWindow::layOut() {
    NSScreen* screen = window_.screen ? window_.screen : NSScreen.mainScreen;
    if (!screen) return renderer_.layOut(windowWidthMax, heightUnlimited);
    return renderer_.layOut(windowWidthMax, NSHeight([window_ contentRectForFrameRect:screen.visibleFrame]));
}

void MacWindow::placeBelowMenuBar() { isBelowMenuBar_ = true; }

void MacWindow::takePlace() {
    NSScreen* screen = NSScreen.mainScreen; // that of the key window, wherever it belongs
    if (!isBelowMenuBar_ || !screen) return [window_ center];
    const NSRect room = NSInsetRect(screen.visibleFrame, edgeMargin, edgeMargin);
    const double left = std::max(NSMinX(room), NSMaxX(room) - NSWidth(window_.frame));
    [window_ setFrameTopLeftPoint:NSMakePoint(left, NSMaxY(room))];
}

void MacWindow::makeKeyAndOrderFront() {
    if (!wasShown_) takePlace();
    const bool wasVisible = window_.visible;
    wasShown_ = true;
    [window_ makeKeyAndOrderFront:nil];
    [window_
        orderFrontRegardless]; // the windows of the active application would cover it until Tavrin is active
    if (!wasVisible) renderer_.takeKeyboard();
}

void MacWindow::close() { [window_ close]; }

bool MacWindow::isVisible() const { return window_.visible; }

} // namespace tavrin::macos
