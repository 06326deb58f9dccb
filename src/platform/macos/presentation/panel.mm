#include "platform/macos/presentation/panel.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"
#include "views/view_layout.h"

#include <algorithm>

@interface TavrinPanel : NSPanel
@end

@implementation TavrinPanel

// Without a title bar a panel would refuse, and what is in it could not be reached by the keyboard.
- (BOOL)canBecomeKeyWindow {
    return YES;
}

@end

namespace tavrin::macos {

namespace {

constexpr double gap = 6; // below the anchor, and left free at the screen's edges
constexpr double cornerRadius = 14;

/// Stretched in its middle, so that it fits a panel of any size. The window's shadow follows it.
NSImage* roundedMask() {
    constexpr double side = 2 * cornerRadius + 1;
    NSImage* mask = [NSImage imageWithSize:NSMakeSize(side, side)
                                   flipped:NO
                            drawingHandler:^BOOL(NSRect bounds) {
                                [NSColor.blackColor setFill];
                                [[NSBezierPath bezierPathWithRoundedRect:bounds
                                                                 xRadius:cornerRadius
                                                                 yRadius:cornerRadius] fill];
                                return YES;
                            }];
    mask.capInsets = NSEdgeInsetsMake(cornerRadius, cornerRadius, cornerRadius, cornerRadius);
    mask.resizingMode = NSImageResizingModeStretch;
    return mask;
}

NSView* makeGround() {
    NSVisualEffectView* ground = [[NSVisualEffectView alloc] initWithFrame:NSZeroRect];
    ground.material = NSVisualEffectMaterialPopover;
    ground.state = NSVisualEffectStateActive; // the panel is often not key
    ground.maskImage = roundedMask();
    return ground;
}

NSPanel* makeNSPanel() {
    NSPanel* panel = [[TavrinPanel alloc]
        initWithContentRect:NSMakeRect(0, 0, 100, 100)
                  styleMask:NSWindowStyleMaskBorderless | NSWindowStyleMaskNonactivatingPanel
                    backing:NSBackingStoreBuffered
                      defer:YES];
    panel.releasedWhenClosed = NO; // else closing takes a reference that ARC counts as ours
    panel.restorable = NO;
    panel.level = NSStatusWindowLevel;
    panel.collectionBehavior =
        NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorFullScreenAuxiliary;
    panel.hidesOnDeactivate = NO;
    panel.becomesKeyOnlyIfNeeded = YES;
    panel.hasShadow = YES;
    panel.opaque = NO;
    panel.backgroundColor = NSColor.clearColor;
    panel.contentView = makeGround();
    return panel;
}

NSScreen* screenWith(NSPoint point) {
    for (NSScreen* screen in NSScreen.screens)
        if (NSPointInRect(point, screen.frame)) return screen;
    return NSScreen.mainScreen;
}

} // namespace

MacPanel::MacPanel(Scheduler& scheduler)
    : gate_(scheduler)
    , renderer_(gate_.deliver())
    , panel_(makeNSPanel()) {
    assertMainThread();
    [panel_.contentView addSubview:renderer_.surface()];
}

MacPanel::~MacPanel() {
    assertMainThread();
    renderer_.letGo();
    [panel_ close];
}

void MacPanel::setContent(View content) {
    renderer_.setContent(std::move(content));
    if (isShown()) place();
}

void MacPanel::show(Rect anchor) {
    anchor_ = anchor;
    place();
    [panel_ orderFrontRegardless];
}

void MacPanel::place() {
    const NSRect anchor = toNSRect(anchor_);
    NSScreen* screen = screenWith(NSMakePoint(NSMidX(anchor), NSMidY(anchor)));
    const NSRect room = screen ? NSInsetRect(screen.visibleFrame, gap, gap) : anchor;
    const NSSize size = renderer_.layOut(popoverWidthMax, screen ? NSHeight(room) : heightUnlimited);
    const double leftMax = std::max(NSMinX(room), NSMaxX(room) - size.width);
    const double left = std::clamp(NSMidX(anchor) - size.width / 2, NSMinX(room), leftMax);
    const double top = std::min(NSMinY(anchor) - gap, NSMaxY(room));
    [renderer_.surface() setFrameSize:size];
    [panel_ setFrame:NSMakeRect(left, top - size.height, size.width, size.height) display:YES];
    [panel_ invalidateShadow];
}

void MacPanel::close() { [panel_ orderOut:nil]; }

bool MacPanel::isShown() const { return panel_.visible; }

} // namespace tavrin::macos
