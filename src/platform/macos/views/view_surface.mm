#include "platform/macos/views/view_surface.h"

#include "platform/macos/views/view_keyboard.h"
#include "platform/macos/views/view_recorder.h"

#include <algorithm>
#include <utility>

using tavrin::macos::Deliver;
using tavrin::macos::ShownView;

@implementation TavrinSurfaceView {
    Deliver deliver_;
    ShownView next_; // what came while another tree was being taken up
}

- (instancetype)initWithDelivery:(Deliver)deliver {
    if ((self = [super initWithFrame:NSZeroRect])) deliver_ = std::move(deliver);
    return self;
}

- (BOOL)isFlipped {
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
    _isTakingUp = YES;
    while (next_) [self takeUp:std::exchange(next_, nullptr)];
    _isTakingUp = NO;
}

- (void)takeUp:(ShownView)view {
    NSArray<TavrinViewNode*>* before = tavrin::macos::focusableNodes(self.rootNode);
    TavrinViewNode* focused = tavrin::macos::nodeWithFocus(self.window);
    const NSUInteger turn = focused ? [before indexOfObject:focused] : NSNotFound;
    if (self.rootNode && self.rootNode.viewKind == view->kind) {
        [self.rootNode showView:std::move(view)];
    } else {
        [self.rootNode removeFromSuperview];
        _rootNode = [[TavrinViewNode alloc] initWithView:std::move(view) deliver:deliver_];
        [self addSubview:_rootNode];
    }
    if (focused) [self restoreFocusAtTurn:turn];
}

- (void)restoreFocusAtTurn:(NSUInteger)turn {
    TavrinViewNode* focused = tavrin::macos::nodeWithFocus(self.window);
    const bool isKept =
        turn == NSNotFound ? focused != nil : static_cast<bool>(focused.acceptsFirstResponder);
    if (isKept) return;
    NSArray<TavrinViewNode*>* now = tavrin::macos::focusableNodes(self.rootNode);
    const bool hasNext = turn != NSNotFound && now.count > 0;
    NSView* next = hasNext ? [now objectAtIndex:std::min(turn, now.count - 1)] : self;
    [self.window makeFirstResponder:next];
}

- (void)letRecordersGo {
    for (TavrinViewNode* node in tavrin::macos::nodesFrom(self.rootNode)) {
        if (node.viewKind == tavrin::ViewKind::ShortcutRecorder)
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
    if (!tavrin::macos::moveFocusInList(self.rootNode, nil, event)) [super keyDown:event];
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
