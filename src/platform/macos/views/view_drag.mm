#include "platform/macos/views/view_drag.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/views/view_drag_preview.h"
#include "platform/macos/views/view_scroll.h"
#include "platform/macos/views/view_surface.h"

#include <string>

namespace {

// Only this program writes the type, so that what other programs drag is never taken.
const NSPasteboardType draggedViewType = @"org.tavrin.Tavrin.dragged-view";

} // namespace

void tavrin::macos::followDrops(TavrinViewNode* node) {
    const bool takesDrops = [node shownView].isEnabled && [node shownView].onDrop;
    if (takesDrops == (node.registeredDraggedTypes.count > 0)) return; // a drag may be over it
    if (takesDrops)
        [node registerForDraggedTypes:@[ draggedViewType ]];
    else
        [node unregisterDraggedTypes];
}

@implementation TavrinViewNode (Drag)

- (BOOL)isDragSource {
    return [self shownView].isEnabled && [self shownView].dragValue.has_value();
}

- (void)beginDragWith:(NSEvent*)event {
    TavrinSurfaceView* source = tavrin::macos::surfaceAround(self);
    if (!source || !self.isDragSource) return;
    NSPasteboardItem* value = [[NSPasteboardItem alloc] init];
    [value setString:tavrin::macos::toNSString(*[self shownView].dragValue) forType:draggedViewType];
    NSDraggingItem* item = [[NSDraggingItem alloc] initWithPasteboardWriter:value];
    NSImage* preview = tavrin::macos::imageOf(tavrin::dragPreviewOf([self shownView]));
    constexpr auto grip = tavrin::DragPreview::grip;
    const NSPoint pointer = [source convertPoint:event.locationInWindow fromView:nil];
    const NSPoint corner = NSMakePoint(pointer.x - grip.x, pointer.y - grip.y);
    [item setDraggingFrame:NSMakeRect(corner.x, corner.y, preview.size.width, preview.size.height)
                  contents:preview];
    [source beginDraggingSessionWithItems:@[ item ] event:event source:source];
}

- (void)tellDragIsOver:(BOOL)isOver {
    if (self.isDragOver == isOver) return;
    self.isDragOver = isOver;
    if (const auto& told = [self shownView].onDragOver) [self deliverWork:[told, isOver] { told(isOver); }];
}

- (NSDragOperation)draggingEntered:(id<NSDraggingInfo>)drag {
    if (!drag.draggingSource) return NSDragOperationNone; // from another process
    [self tellDragIsOver:YES];
    return NSDragOperationMove;
}

- (NSDragOperation)draggingUpdated:(id<NSDraggingInfo>)drag {
    if (!drag.draggingSource) return NSDragOperationNone;
    tavrin::macos::scrollTowards(drag.draggingLocation, self);
    return NSDragOperationMove;
}

- (void)draggingExited:(id<NSDraggingInfo>)drag {
    [self tellDragIsOver:NO];
}

- (BOOL)performDragOperation:(id<NSDraggingInfo>)drag {
    [self tellDragIsOver:NO];
    NSString* value = [drag.draggingPasteboard stringForType:draggedViewType];
    const auto& onDrop = [self shownView].onDrop;
    if (!drag.draggingSource || !value || !onDrop) return NO;
    [self deliverWork:[onDrop, text = tavrin::macos::toString(value)] { onDrop(text); }];
    return YES;
}

@end
