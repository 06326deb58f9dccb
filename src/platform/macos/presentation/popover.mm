#include "platform/macos/presentation/popover.h"

#include "platform/macos/presentation/status_items.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/key_window.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"
#include "views/view_layout.h"

#include <utility>

@interface TavrinPopoverDelegate : NSObject <NSPopoverDelegate>
@property(nonatomic, copy) void (^onClose)(void);
@end

@implementation TavrinPopoverDelegate

- (void)popoverDidClose:(NSNotification*)notification {
    if (self.onClose) self.onClose();
}

@end

namespace tavrin::macos {

namespace {

// Otherwise it may open in another Space than the full-screen one in which the user is.
constexpr NSWindowCollectionBehavior behaviorOnSpaces =
    NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorFullScreenAuxiliary;

constexpr double edgeMargin = 24; // for the arrow, and left free at the screen's lower edge

NSPopoverBehavior behaviorFor(PopoverBehavior behavior) {
    return behavior == PopoverBehavior::Transient ? NSPopoverBehaviorTransient
                                                  : NSPopoverBehaviorApplicationDefined;
}

bool isMotionReduced() { return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion; }

} // namespace

MacPopover::MacPopover(Scheduler& scheduler, PopoverBehavior behavior, std::function<void()> onClose)
    : gate_(scheduler)
    , onClose_(std::move(onClose))
    , renderer_(gate_.deliver())
    , popover_([[NSPopover alloc] init])
    , delegate_([[TavrinPopoverDelegate alloc] init])
    , windowMoves_(observe(scheduler, NSNotificationCenter.defaultCenter, NSWindowDidMoveNotification,
                           [this] { takePlace(); }))
    , activations_(observe(scheduler, NSNotificationCenter.defaultCenter,
                           NSApplicationDidBecomeActiveNotification,
                           [this] { takeKeysIfFree(renderer_.surface().window); })) {
    assertMainThread();
    NSViewController* controller = [[NSViewController alloc] initWithNibName:nil bundle:nil];
    controller.view = renderer_.surface();
    popover_.contentViewController = controller;
    popover_.behavior = behaviorFor(behavior);
    popover_.delegate = delegate_;
    // The destructor takes it back.
    delegate_.onClose = ^{
        didClose();
    };
}

MacPopover::~MacPopover() {
    assertMainThread();
    delegate_.onClose = nil;
    popover_.delegate = nil;
    renderer_.letGo();
    highlight(nil);
    if (outsidePresses_) [NSEvent removeMonitor:outsidePresses_];
    popover_.animates = NO; // nothing may outlast its owner's callbacks on the screen
    [popover_ close];
}

void MacPopover::setContent(View content) {
    renderer_.setContent(std::move(content));
    layOut();
}

void MacPopover::layOut() {
    NSScreen* screen = button_.window.screen;
    if (!screen) screen = NSScreen.mainScreen;
    const double heightMax = screen ? NSHeight(screen.visibleFrame) - edgeMargin : heightUnlimited;
    const NSSize size = renderer_.layOut(popoverWidthMax, heightMax);
    if (!renderer_.surface().window) [renderer_.surface() setFrameSize:size]; // later the popover does
    const NSSize shown = popover_.contentSize;
    if (shown.width != size.width || shown.height != size.height) popover_.contentSize = size;
}

void MacPopover::setBehavior(PopoverBehavior behavior) {
    popover_.behavior = behaviorFor(behavior);
    takePlace();
}

/// A popover goes along with the window of its item by itself; one that is to stay is positioned as far from
/// the item as the item has gone.
void MacPopover::takePlace() {
    if (!popover_.shown || !button_.window) return;
    const bool stays = popover_.behavior == NSPopoverBehaviorApplicationDefined;
    const NSRect place = stays ? rectInButton(button_, areaOnScreen_) : areaInButton_;
    if (toRect(popover_.positioningRect) != toRect(place)) popover_.positioningRect = place;
    if (!stays) areaOnScreen_ = rectOnScreen(button_, areaInButton_);
}

bool MacPopover::show(StatusItem& item, Rect area) {
    NSStatusBarButton* button = buttonOf(item);
    if (!button.window) return false;
    button_ = button;
    layOut();
    popover_.animates = !isMotionReduced();
    areaOnScreen_ = area;
    areaInButton_ = rectInButton(button, area);
    [popover_ showRelativeToRect:areaInButton_ ofView:button preferredEdge:NSRectEdgeMinY];
    if (!popover_.shown) return false;
    // Below an item that isn't drawn it may count as shown without a window.
    if (!isShown()) return true;
    highlight(button);
    renderer_.surface().window.collectionBehavior = behaviorOnSpaces;
    [renderer_.surface().window makeKeyWindow];
    renderer_.takeKeyboard();
    watchOutside();
    return true;
}

/// The item stays lit while its popover is open, as under a menu.
void MacPopover::highlight(NSStatusBarButton* button) {
    if (litButton_ != button) [litButton_ highlight:NO];
    litButton_ = button;
    [litButton_ highlight:YES];
}

/// Presses on other processes' status items don't close a transient popover by themselves.
void MacPopover::watchOutside() {
    if (outsidePresses_) return;
    NSPopover* popover = popover_;
    outsidePresses_ =
        [NSEvent addGlobalMonitorForEventsMatchingMask:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown
                                               handler:^(NSEvent*) {
                                                   if (popover.behavior == NSPopoverBehaviorTransient)
                                                       [popover close];
                                               }];
}

void MacPopover::didClose() {
    if (outsidePresses_) [NSEvent removeMonitor:outsidePresses_];
    outsidePresses_ = nil;
    highlight(nil);
    gate_.deliver()(onClose_);
}

void MacPopover::close() { [popover_ close]; }

bool MacPopover::isShown() const {
    NSWindow* window = renderer_.surface().window;
    return popover_.shown && window.visible && window.screen;
}

} // namespace tavrin::macos
