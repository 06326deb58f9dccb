#pragma once

#include <AppKit/NSAccessibility.h>
#include <AppKit/NSAnimation.h>
#include <AppKit/NSDragging.h>
#include <AppKit/NSGraphics.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSUserInterfaceItemIdentification.h>

@class NSDraggingItem, NSDraggingSession, NSScrollView, NSWindow;

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
    NSViewNotSizable = 0,
    NSViewMinXMargin = 1,
    NSViewWidthSizable = 2,
    NSViewMaxXMargin = 4,
    NSViewMinYMargin = 8,
    NSViewHeightSizable = 16,
    NSViewMaxYMargin = 32,
};

typedef NS_ENUM(NSUInteger, NSBorderType) {
    NSNoBorder = 0,
};

@interface NSView : NSResponder <NSAccessibility,
                                 NSAnimatablePropertyContainer,
                                 NSDraggingDestination,
                                 NSUserInterfaceItemIdentification>
@property (readonly) NSEdgeInsets alignmentRectInsets;
@property CGFloat alphaValue;
@property NSAutoresizingMaskOptions autoresizingMask;
@property NSRect bounds;
@property (readonly) BOOL canBecomeKeyView;
@property BOOL clipsToBounds;
@property (readonly) NSScrollView *enclosingScrollView;
@property (getter=isFlipped, readonly) BOOL flipped;
@property (readonly) NSRect focusRingMaskBounds;
@property NSFocusRingType focusRingType;
@property NSRect frame;
@property (getter=isHidden) BOOL hidden;
@property (getter=isHiddenOrHasHiddenAncestor, readonly) BOOL hiddenOrHasHiddenAncestor;
@property (readonly) NSSize intrinsicContentSize;
@property BOOL needsDisplay;
@property (readonly) BOOL needsPanelToBecomeKey;
@property (copy, readonly) NSArray<NSPasteboardType> *registeredDraggedTypes;
@property (copy) NSArray<NSView *> *subviews;
@property (readonly) NSView *superview;
@property (copy) NSString *toolTip;
@property BOOL wantsLayer;
@property (readonly) NSRect visibleRect;
@property (readonly) NSWindow *window;
- (instancetype)initWithFrame:(NSRect)frame;
- (void)addSubview:(NSView *)view;
- (void)addSubview:(NSView *)view positioned:(NSWindowOrderingMode)place relativeTo:(NSView *)other;
- (void)replaceSubview:(NSView *)old with:(NSView *)replacement;
- (void)removeFromSuperview;
- (BOOL)isDescendantOf:(NSView *)view;
- (void)viewDidMoveToWindow;
- (void)viewWillMoveToWindow:(NSWindow *)window;
- (void)setFrameSize:(NSSize)size;
- (NSRect)frameForAlignmentRect:(NSRect)rect;
- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView *)view;
- (NSRect)convertRect:(NSRect)rect fromView:(NSView *)view;
- (NSRect)convertRect:(NSRect)rect toView:(NSView *)view;
- (BOOL)scrollRectToVisible:(NSRect)rect;
- (void)drawRect:(NSRect)dirtyRect;
- (void)drawFocusRingMask;
- (BOOL)acceptsFirstMouse:(NSEvent *)event;
- (NSView *)hitTest:(NSPoint)pointInSuperview;
- (NSMenu *)menuForEvent:(NSEvent *)event;
- (void)registerForDraggedTypes:(NSArray<NSPasteboardType> *)types;
- (void)unregisterDraggedTypes;
- (NSDraggingSession *)beginDraggingSessionWithItems:(NSArray<NSDraggingItem *> *)items
                                               event:(NSEvent *)event
                                              source:(id<NSDraggingSource>)source;
@end
