#include "platform/macos/views/view_node.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/views/view_accessibility.h"
#include "platform/macos/views/view_controls.h"
#include "platform/macos/views/view_drag.h"
#include "platform/macos/views/view_ground.h"
#include "platform/macos/views/view_scroll.h"

#include <utility>
#include <vector>

using tavrin::ControlSizes;
using tavrin::View;
using tavrin::Work;
using tavrin::macos::Deliver;
using tavrin::macos::ShownView;

@implementation TavrinViewNode {
    ShownView view_;
    Deliver deliver_;
    NSMutableArray<TavrinViewNode*>* children_;
}

- (instancetype)initWithView:(ShownView)view deliver:(Deliver)deliver {
    view_ = view; // AppKit asks what the view can do while it makes it
    if (!(self = [super initWithFrame:NSZeroRect])) return nil;
    deliver_ = std::move(deliver);
    children_ = [NSMutableArray array];
    self.focusRingType = NSFocusRingTypeExterior;
    // Bezels and words reach a little beyond the frames that controls are aligned by. Views of programs built
    // against the SDKs before macOS 14 cut them off there.
    if ([self respondsToSelector:@selector(setClipsToBounds:)]) self.clipsToBounds = NO;
    _innerControl = tavrin::macos::makeControl(*view, self);
    if (_innerControl) [self addSubview:_innerControl];
    [self showView:std::move(view)];
    return self;
}

- (const View&)shownView {
    return *view_;
}

- (NSArray<TavrinViewNode*>*)childNodes {
    return children_;
}

- (void)deliverWork:(Work)work {
    deliver_(std::move(work));
}

- (void)showView:(ShownView)view {
    // A press that has begun doesn't drag what has taken its place.
    if (view_ && view_->dragValue != view->dragValue) self.pressedAt = std::nullopt;
    view_ = std::move(view);
    [self showChildViews];
    if (self.innerControl) tavrin::macos::dressControl(self.innerControl, *view_);
    [self updateHelp];
    tavrin::macos::describe(self);
    tavrin::macos::followDrops(self);
    self.needsDisplay = YES;
}

// Only another text is set: setting it takes away the one that is being shown.
- (void)updateHelp {
    NSString* help = tavrin::macos::localized(view_->help);
    if ([(self.toolTip ? self.toolTip : @"") isEqualToString:help]) return;
    self.toolTip = help.length == 0 ? nil : help;
}

- (void)showChildViews {
    const auto& views = view_->children;
    for (NSUInteger i = 0; i < views.size(); ++i) [self showChildView:ShownView(view_, &views[i]) at:i];
    while (children_.count > views.size()) {
        [children_.lastObject removeFromSuperview];
        [children_ removeObjectAtIndex:children_.count - 1];
    }
}

- (void)showChildView:(ShownView)view at:(NSUInteger)index {
    TavrinViewNode* old = index < children_.count ? children_[index] : nil;
    if (old && tavrin::isSameKind([old shownView], *view)) return [old showView:std::move(view)];
    TavrinViewNode* made = [[TavrinViewNode alloc] initWithView:std::move(view) deliver:deliver_];
    NSView* ground = tavrin::macos::groundOfChildren(self);
    if (old) {
        [ground replaceSubview:old with:made];
        children_[index] = made;
    } else {
        [ground addSubview:made];
        [children_ addObject:made];
    }
}

- (void)placeAt:(NSRect)frame sizes:(const ControlSizes&)sizes {
    self.frame = frame;
    const bool isScroll = tavrin::is<tavrin::kinds::Scroll>(*view_);
    if (isScroll) {
        self.innerControl.frame = self.bounds;
    } else if (self.innerControl) {
        const NSRect inside = NSInsetRect(self.bounds, view_->padding, view_->padding);
        self.innerControl.frame = [self.innerControl frameForAlignmentRect:inside];
    }
    const auto frames = tavrin::framesOfChildren(*view_, {NSWidth(frame), NSHeight(frame)}, sizes);
    if (isScroll) tavrin::macos::sizeScrolled(self, frames);
    for (NSUInteger i = 0; i < frames.size(); ++i) {
        const tavrin::Rect& child = frames[i];
        [children_[i] placeAt:NSMakeRect(child.x, child.y, child.width, child.height) sizes:sizes];
    }
}

- (BOOL)isFlipped {
    return YES;
}

// Pictures and words are nothing to press: the node takes what meets them.
- (NSView*)hitTest:(NSPoint)point {
    NSView* hit = [super hitTest:point];
    const bool isOnDisplay = hit && self.innerControl && [hit isDescendantOf:self.innerControl];
    return isOnDisplay && tavrin::macos::isDisplayOnly(*view_) ? self : hit;
}

- (void)drawRect:(NSRect)dirtyRect {
    tavrin::macos::drawGround(*view_, self.bounds);
}

@end
