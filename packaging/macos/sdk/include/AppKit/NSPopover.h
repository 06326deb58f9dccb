#pragma once

#include <AppKit/NSResponder.h>

@class NSNotification, NSView, NSViewController;

typedef NS_ENUM(NSInteger, NSPopoverBehavior) {
    NSPopoverBehaviorApplicationDefined = 0,
    NSPopoverBehaviorTransient = 1,
    NSPopoverBehaviorSemitransient = 2,
};

@protocol NSPopoverDelegate <NSObject>
@optional
- (void)popoverDidClose:(NSNotification *)notification;
@end

@interface NSPopover : NSResponder
@property BOOL animates;
@property NSPopoverBehavior behavior;
@property NSSize contentSize;
@property (retain) NSViewController *contentViewController;
@property (weak) id<NSPopoverDelegate> delegate;
@property NSRect positioningRect;
@property (getter=isShown, readonly) BOOL shown;
- (void)showRelativeToRect:(NSRect)rect ofView:(NSView *)view preferredEdge:(NSRectEdge)edge;
- (void)close;
@end
