#pragma once

#include <AppKit/NSPasteboard.h>

@class NSDraggingSession;

typedef NS_OPTIONS(NSUInteger, NSDragOperation) {
    NSDragOperationNone = 0,
    NSDragOperationMove = 16,
};

typedef NS_ENUM(NSInteger, NSDraggingContext) {
    NSDraggingContextOutsideApplication = 0,
    NSDraggingContextWithinApplication = 1,
};

@protocol NSDraggingInfo <NSObject>
@property (readonly) NSPoint draggingLocation; // in the window of the destination
@property (readonly) NSPasteboard *draggingPasteboard;
@property (readonly) id draggingSource; // nil when it is in another process
@end

@protocol NSDraggingDestination <NSObject>
@optional
- (NSDragOperation)draggingEntered:(id<NSDraggingInfo>)drag;
- (NSDragOperation)draggingUpdated:(id<NSDraggingInfo>)drag;
- (void)draggingExited:(id<NSDraggingInfo>)drag;
- (BOOL)performDragOperation:(id<NSDraggingInfo>)drag;
@end

@protocol NSDraggingSource <NSObject>
- (NSDragOperation)draggingSession:(NSDraggingSession *)session
    sourceOperationMaskForDraggingContext:(NSDraggingContext)context;
@end
