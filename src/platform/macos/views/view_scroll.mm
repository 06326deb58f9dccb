#include "platform/macos/views/view_scroll.h"

#include "views/drag_preview.h"

#include <algorithm>

@interface TavrinScrolledView : NSView
@end

@implementation TavrinScrolledView

- (BOOL)isFlipped {
    return YES;
}

@end

namespace tavrin::macos {

namespace {

double stepAt(NSPoint point, NSRect visible) {
    if (!NSPointInRect(point, visible)) return 0;
    if (point.y < NSMinY(visible) + dragScrollEdge) return -dragScrollStep;
    return point.y > NSMaxY(visible) - dragScrollEdge ? dragScrollStep : 0;
}

} // namespace

NSScrollView* makeScrollView() {
    NSScrollView* scroll = [[NSScrollView alloc] initWithFrame:NSZeroRect];
    scroll.drawsBackground = NO;
    scroll.borderType = NSNoBorder;
    scroll.hasVerticalScroller = YES;
    scroll.autohidesScrollers = YES;
    scroll.scrollerStyle = NSScrollerStyleOverlay; // takes no width from the content
    scroll.automaticallyAdjustsContentInsets = NO;
    scroll.documentView = [[TavrinScrolledView alloc] initWithFrame:NSZeroRect];
    return scroll;
}

NSView* groundOfChildren(TavrinViewNode* node) {
    if (!is<kinds::Scroll>([node shownView])) return node;
    return static_cast<NSScrollView*>(node.innerControl).documentView;
}

void sizeScrolled(TavrinViewNode* scroll, const std::vector<Rect>& frames) {
    const double bottom = frames.empty() ? 0 : frames.back().maxY() + [scroll shownView].padding;
    const NSSize room = scroll.bounds.size;
    [groundOfChildren(scroll) setFrameSize:NSMakeSize(room.width, std::max(bottom, room.height))];
}

void scrollTowards(NSPoint pointInWindow, NSView* node) {
    NSScrollView* scroll = node.enclosingScrollView;
    NSClipView* clip = scroll.contentView;
    if (!clip) return;
    NSRect visible = clip.bounds;
    const double step = stepAt([clip convertPoint:pointInWindow fromView:nil], visible);
    if (step == 0) return;
    visible.origin.y += step;
    [clip scrollToPoint:[clip constrainBoundsRect:visible].origin];
    [scroll reflectScrolledClipView:clip];
}

} // namespace tavrin::macos
