#include "platform/macos/views/view_surface.h"

#include "platform/macos/views/view_keyboard.h"
#include "platform/macos/views/view_recorder.h"
#include "views/kept_focus.h"

#include <utility>

using tavrin::macos::Deliver;
using tavrin::macos::ShownView;

namespace {

/// Set while trees are being taken up. A fault that ends that drops the trees that wait.
class TakingUp {
  public:
    TakingUp(BOOL& isTakingUp, ShownView& next) : isTakingUp_(isTakingUp), next_(next) { isTakingUp_ = YES; }

    TakingUp(const TakingUp&) = delete;
    TakingUp& operator=(const TakingUp&) = delete;

    ~TakingUp() {
        isTakingUp_ = NO;
        next_ = nullptr;
    }

  private:
    BOOL& isTakingUp_;
    ShownView& next_;
};

} // namespace

TavrinSurfaceView* tavrin::macos::surfaceAround(NSView* view) {
    while (view && ![view isKindOfClass:TavrinSurfaceView.class]) view = view.superview;
    return static_cast<TavrinSurfaceView*>(view);
}

@implementation TavrinSurfaceView {
    Deliver deliver_;
    tavrin::KeptFocus focus_;
    BOOL wasFocusInSight_; // since the tree that was laid out last
    ShownView next_;       // what came while another tree was being taken up
}

- (instancetype)initWithDelivery:(Deliver)deliver {
    if ((self = [super initWithFrame:NSZeroRect])) deliver_ = std::move(deliver);
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}

- (void)viewDidMoveToWindow {
    [super viewDidMoveToWindow];
    self.window.autorecalculatesKeyViewLoop = YES;
}

// A recorder that loses its place tells the program at once, and what it says may bring in another tree.
- (void)showView:(ShownView)view {
    next_ = std::move(view);
    if (_isTakingUp) return;
    const TakingUp sign(_isTakingUp, next_);
    while (next_) [self takeUp:std::exchange(next_, nullptr)];
}

- (void)takeUp:(ShownView)view {
    const auto before = tavrin::macos::focusedPath(self.rootNode);
    focus_.seenAt(before);
    if (!wasFocusInSight_) wasFocusInSight_ = [self isFocusInSight];
    if (self.rootNode && tavrin::isSameKind([self.rootNode shownView], *view)) {
        [self.rootNode showView:std::move(view)];
    } else {
        [self.rootNode removeFromSuperview];
        _rootNode = [[TavrinViewNode alloc] initWithView:std::move(view) deliver:deliver_];
        [self addSubview:_rootNode];
    }
    const auto place = focus_.settleIn(tavrin::focusPlacesOf([self.rootNode shownView]));
    if (place)
        [self putFocusAt:*place];
    else if (before)
        [self.window makeFirstResponder:self];
}

- (void)putFocusAt:(const tavrin::ViewPath&)path {
    if (tavrin::macos::focusedPath(self.rootNode) == path) return;
    NSView* view = tavrin::macos::keyViewOf(tavrin::macos::nodeAt(self.rootNode, path));
    [self.window makeFirstResponder:view];
}

- (TavrinViewNode*)focusedNode {
    const auto path = tavrin::macos::focusedPath(self.rootNode);
    return path ? tavrin::macos::nodeAt(self.rootNode, *path) : nil;
}

- (BOOL)isFocusInSight {
    TavrinViewNode* node = [self focusedNode];
    const NSPoint middle = NSMakePoint(NSMidX(node.bounds), NSMidY(node.bounds));
    return node && NSPointInRect(middle, node.visibleRect);
}

- (void)keepFocusInSight {
    if (std::exchange(wasFocusInSight_, NO)) [self revealFocus];
}

- (void)revealFocus {
    TavrinViewNode* node = [self focusedNode];
    [node scrollRectToVisible:node.bounds];
}

- (BOOL)moveFocusWith:(NSEvent*)event {
    const auto path = tavrin::macos::focusAfterKey(self.rootNode, event);
    if (!path) return NO;
    focus_.moveTo(*path);
    [self putFocusAt:*path];
    [self revealFocus];
    return YES;
}

- (void)takeKeyboard {
    focus_.clear();
    [self.window makeFirstResponder:self];
}

- (void)letRecordersGo {
    for (TavrinViewNode* node in tavrin::macos::nodesFrom(self.rootNode)) {
        if (tavrin::is<tavrin::kinds::ShortcutRecorder>([node shownView]))
            [static_cast<TavrinRecorderButton*>(node.innerControl) letRecorderGo];
    }
}

- (BOOL)acceptsFirstResponder {
    return YES;
}

// Tab goes from here to the views, and never back.
- (BOOL)canBecomeKeyView {
    return NO;
}

- (NSFocusRingType)focusRingType {
    return NSFocusRingTypeNone;
}

- (void)keyDown:(NSEvent*)event {
    if ([self.rootNode performKeyActionFor:event]) return;
    if (![self moveFocusWith:event]) [super keyDown:event];
}

// Return would go to the default button before the view with the focus is asked.
- (BOOL)performKeyEquivalent:(NSEvent*)event {
    if (event.type == NSEventTypeKeyDown && tavrin::macos::performFocusedKeyAction(self.window, event))
        return YES;
    return [super performKeyEquivalent:event];
}

- (NSDragOperation)draggingSession:(NSDraggingSession*)session
    sourceOperationMaskForDraggingContext:(NSDraggingContext)context {
    return context == NSDraggingContextWithinApplication ? NSDragOperationMove : NSDragOperationNone;
}

@end
