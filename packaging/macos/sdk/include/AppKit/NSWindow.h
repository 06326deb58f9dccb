#pragma once

#include <AppKit/NSGraphics.h>
#include <AppKit/NSResponder.h>

@class NSColor, NSNotification, NSScreen, NSView;

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1,
    NSWindowStyleMaskClosable = 2,
    NSWindowStyleMaskNonactivatingPanel = 128,
};

typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorDefault = 0,
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1,
    NSWindowCollectionBehaviorMoveToActiveSpace = 2,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 256,
};

typedef NS_OPTIONS(NSUInteger, NSWindowOcclusionState) {
    NSWindowOcclusionStateVisible = 2,
};

typedef NSInteger NSWindowLevel;
static const NSWindowLevel NSStatusWindowLevel = 25;

APPKIT_EXTERN const NSNotificationName NSWindowDidChangeOcclusionStateNotification;
APPKIT_EXTERN const NSNotificationName NSWindowDidMoveNotification;
APPKIT_EXTERN const NSNotificationName NSWindowDidResignKeyNotification;

@protocol NSWindowDelegate <NSObject>
@optional
- (void)windowWillClose:(NSNotification *)notification;
@end

@interface NSWindow : NSResponder
@property BOOL autorecalculatesKeyViewLoop;
@property (copy) NSColor *backgroundColor;
@property BOOL preventsApplicationTerminationWhenModal;
@property NSWindowCollectionBehavior collectionBehavior;
@property (strong) NSView *contentView;
@property (weak) id<NSWindowDelegate> delegate;
@property (weak, readonly) NSResponder *firstResponder;
@property (readonly) NSRect frame;
@property BOOL hasShadow;
@property BOOL hidesOnDeactivate;
@property NSWindowLevel level;
@property (readonly) BOOL canBecomeKeyWindow;
@property (getter=isOpaque) BOOL opaque;
@property (readonly) NSWindowOcclusionState occlusionState;
@property (getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property (getter=isRestorable) BOOL restorable;
@property (strong, readonly) NSScreen *screen;
@property (copy) NSString *title;
@property (getter=isVisible, readonly) BOOL visible;
- (instancetype)initWithContentRect:(NSRect)content
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer;
- (void)center;
- (void)setFrameTopLeftPoint:(NSPoint)point;
- (void)invalidateShadow;
- (void)close;
- (void)orderFrontRegardless;
- (void)orderOut:(id)sender;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)makeKeyWindow;
- (BOOL)makeFirstResponder:(NSResponder *)responder;
- (void)setFrame:(NSRect)frame display:(BOOL)display;
- (NSRect)contentRectForFrameRect:(NSRect)frame;
- (NSRect)frameRectForContentRect:(NSRect)content;
- (NSRect)convertRectFromScreen:(NSRect)rect;
- (NSRect)convertRectToScreen:(NSRect)rect;
@end
