#include "platform/macos/views/view_press.h"

#include "platform/macos/views/view_controls.h"
#include "platform/macos/views/view_drag.h"
#include "platform/macos/views/view_recorder.h"
#include "views/drag_preview.h"

#include <cmath>

namespace kinds = tavrin::kinds;

bool tavrin::macos::isPressable(TavrinViewNode* node) {
    const auto& view = [node shownView];
    return view.isEnabled && view.onPress && (!node.innerControl || isDisplayOnly(view));
}

@implementation TavrinViewNode (Press)

- (void)pressNode {
    if ([self shownView].isEnabled) [self deliverWork:[self shownView].onPress];
}

- (void)pressRecorder {
    __weak TavrinRecorderButton* button = static_cast<TavrinRecorderButton*>(self.innerControl);
    [self deliverWork:[button] { [button recorderWasClicked]; }];
}

// A checkbox has ticked itself by now; whether it stays ticked is for the next tree to say.
- (void)pressControl:(id)sender {
    const auto& view = [self shownView];
    if (tavrin::is<kinds::Checkbox>(view)) tavrin::macos::dressControl(self.innerControl, view);
    if (tavrin::is<kinds::ShortcutRecorder>(view)) return [self pressRecorder];
    [self pressNode];
}

// A press counts also when it activates the application or makes the window the key one.
- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}

- (void)mouseDown:(NSEvent*)event {
    if (self.acceptsFirstResponder) [self.window makeFirstResponder:self];
    if (!tavrin::macos::isPressable(self) && !self.isDragSource) return [super mouseDown:event];
    self.pressedAt = event.locationInWindow;
}

- (void)mouseDragged:(NSEvent*)event {
    const auto from = self.pressedAt;
    if (!from) return [super mouseDragged:event];
    const NSPoint to = event.locationInWindow;
    if (!self.isDragSource || std::hypot(to.x - from->x, to.y - from->y) <= tavrin::dragThreshold) return;
    self.pressedAt = std::nullopt;
    [self beginDragWith:event];
}

- (void)mouseUp:(NSEvent*)event {
    if (!self.pressedAt) return [super mouseUp:event];
    self.pressedAt = std::nullopt;
    const NSPoint point = [self convertPoint:event.locationInWindow fromView:nil];
    if (tavrin::macos::isPressable(self) && NSPointInRect(point, self.bounds)) [self pressNode];
}

@end
