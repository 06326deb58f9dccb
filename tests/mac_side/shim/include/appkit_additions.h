// What AppKit has and GNUstep 0.29 lacks, as far as it is used.
#pragma once
#undef nil
#define nil nullptr
// Theirs are casts, which can't stand in @YES.
#undef YES
#undef NO
#define YES __objc_yes
#define NO __objc_no

#define NSEventModifierFlagShift NSShiftKeyMask
#define NSEventModifierFlagControl NSControlKeyMask
#define NSEventModifierFlagOption NSAlternateKeyMask
#define NSEventModifierFlagCommand NSCommandKeyMask
#define NSEventMaskLeftMouseDown NSLeftMouseDownMask
#define NSEventMaskRightMouseDown NSRightMouseDownMask
#define NSEventMaskLeftMouseUp NSLeftMouseUpMask
#define NSEventMaskRightMouseUp NSRightMouseUpMask
#define NSEventMaskKeyDown NSKeyDownMask
#define NSEventTypeKeyDown NSKeyDown
#define NSEventTypeLeftMouseDown NSLeftMouseDown
#define NSEventTypeRightMouseDown NSRightMouseDown
#define NSEventTypeMouseMoved NSMouseMoved
#define NSEventTypeLeftMouseDragged NSLeftMouseDragged
#define NSEventTypeScrollWheel NSScrollWheel
#define NSEventTypeLeftMouseUp NSLeftMouseUp
#define NSEventTypeRightMouseUp NSRightMouseUp
#define NSBitmapImageFileTypePNG NSPNGFileType
#define NSProgressIndicatorStyleSpinning NSProgressIndicatorSpinningStyle
#define NSImageLeading NSImageLeft
#define NSRectEdgeMinY NSMinYEdge
typedef NSString* NSPasteboardType;
typedef NSString* NSKeyValueChangeKey;
typedef NSString* NSFontTextStyle;
FOUNDATION_EXPORT const NSFontTextStyle NSFontTextStyleBody;
FOUNDATION_EXPORT const NSFontTextStyle NSFontTextStyleTitle1;
FOUNDATION_EXPORT const NSFontTextStyle NSFontTextStyleTitle3;
FOUNDATION_EXPORT const NSFontTextStyle NSFontTextStyleSubheadline;

FOUNDATION_EXPORT NSString* const NSWorkspaceActiveSpaceDidChangeNotification;
FOUNDATION_EXPORT NSString* const NSWorkspaceScreensDidWakeNotification;
FOUNDATION_EXPORT NSString* const NSWindowDidChangeOcclusionStateNotification;

enum { NSWindowOcclusionStateVisible = 2 };

// Theirs is an inline function.
#define NSBeep tavrinBeep
void tavrinBeep(void);
#define NS_VALID_UNTIL_END_OF_SCOPE __attribute__((objc_precise_lifetime))

#define alphanumericCharacterSet tavrinAlphanumeric
@interface NSCharacterSet (TavrinShim)
+ (NSCharacterSet*)tavrinAlphanumeric;
@end
#define localizedCaseInsensitiveCompare tavrinCompare
@interface NSString (TavrinShim)
- (NSComparisonResult)tavrinCompare:(NSString*)other;
- (NSString*)stringByFoldingWithOptions:(NSUInteger)options locale:(NSLocale*)locale;
@property(readonly, getter=isAbsolutePath) BOOL absolutePath;
@end

typedef struct {
    NSInteger majorVersion, minorVersion, patchVersion;
} NSOperatingSystemVersion;

// Theirs counts whole seconds.
#define systemUptime tavrinUptime
@interface NSProcessInfo (TavrinShim)
@property(readonly) NSTimeInterval tavrinUptime;
@property(readonly) NSOperatingSystemVersion operatingSystemVersion;
- (id<NSObject>)beginActivityWithOptions:(unsigned long long)options reason:(NSString*)reason;
@end
#define mainBundle tavrinMainBundle
#define bundleWithPath tavrinBundleWithPath
@interface NSBundle (TavrinShim)
+ (NSBundle*)tavrinMainBundle;
+ (NSBundle*)tavrinBundleWithPath:(NSString*)path;
@end
@interface NSWorkspace (TavrinShim)
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion;
@property(readonly) NSRunningApplication* menuBarOwningApplication;
@end
#define runningApplicationWithProcessIdentifier tavrinRunningWithProcess
@interface NSRunningApplication (TavrinShim)
+ (NSRunningApplication*)tavrinRunningWithProcess:(pid_t)process;
@end
@interface NSApplication (TavrinShim)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activate;
- (void)yieldActivationToApplication:(NSRunningApplication*)application;
@property(readonly, getter=isActive) BOOL active;
@end
@interface NSColor (TavrinShim)
@property(class, readonly) NSColor* controlAccentColor;
@property(class, readonly) NSColor* separatorColor;
@property(class, readonly) NSColor* secondaryLabelColor;
@end
@interface NSFont (TavrinShim)
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options;
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight;
@end
@interface NSImageSymbolConfiguration : NSObject
@property CGFloat size;
@property(strong) NSColor* color;
+ (instancetype)configurationWithPointSize:(CGFloat)size weight:(CGFloat)weight;
+ (instancetype)configurationWithHierarchicalColor:(NSColor*)color;
@end
@interface NSImage (TavrinShim)
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration;
+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect))handler;
@property(copy) NSString* accessibilityDescription;
- (void)setTemplate:(BOOL)isTemplate;
@property NSEdgeInsets capInsets;
@property NSInteger resizingMode;
@end

enum { NSImageResizingModeStretch = 1 };
@interface NSEvent (TavrinShim)
@property(readonly) BOOL hasPreciseScrollingDeltas;
@property(readonly) CGFloat scrollingDeltaX;
@property(readonly) CGFloat scrollingDeltaY;
@property(getter=isDirectionInvertedFromDevice, readonly) BOOL directionInvertedFromDevice;
+ (id)addLocalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(NSEvent* (^)(NSEvent*))handler;
+ (id)addGlobalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(void (^)(NSEvent*))handler;
+ (void)removeMonitor:(id)monitor;
@end
@interface NSControl (TavrinShim)
@property(strong) NSCell* cell;
@property(getter=isEnabled) BOOL enabled;
@end
typedef NSString* NSAccessibilityRole;
@interface NSObject (TavrinShimAccessibility)
@property(getter=isAccessibilityElement) BOOL accessibilityElement;
@property(getter=isAccessibilityHidden) BOOL accessibilityHidden;
@property(copy) NSString* accessibilityLabel;
@property(copy) NSString* accessibilityHelp;
@property(strong) id accessibilityValue;
@property(copy) NSString* accessibilityRole;
@property(copy) NSArray* accessibilityCustomActions;
- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector;
@end
@interface TavrinShimCustomAction : NSObject
@property(copy) NSString* name;
@property(copy) BOOL (^handler)(void);
- (instancetype)initWithName:(NSString*)name handler:(BOOL (^)(void))handler;
@end
#define NSAccessibilityCustomAction TavrinShimCustomAction
@interface NSView (TavrinShim)
@property(readonly) NSEdgeInsets alignmentRectInsets;
- (NSRect)frameForAlignmentRect:(NSRect)rect;
@property(readonly) NSSize intrinsicContentSize;
@property BOOL clipsToBounds;
@property BOOL wantsLayer;
@property(copy) NSString* identifier;
@property(readonly, getter=isHiddenOrHasHiddenAncestor) BOOL hiddenOrHasHiddenAncestor;
@property(readonly, getter=isFlipped) BOOL flipped;
- (instancetype)animator;
@end
@interface NSButton (TavrinShim)
+ (instancetype)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action;
+ (instancetype)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action;
@property(copy) NSColor* bezelColor;
@property(copy) NSColor* contentTintColor;
@property BOOL imageHugsTitle;
@end
@interface NSImageView (TavrinShim)
@property(copy) NSColor* contentTintColor;
@end
@interface NSTextField (TavrinShim)
+ (instancetype)wrappingLabelWithString:(NSString*)text;
@end
@interface NSScrollView (TavrinShim)
@property NSInteger scrollerStyle;
@property BOOL automaticallyAdjustsContentInsets;
@end
@interface NSClipView (TavrinShim)
- (NSRect)constrainBoundsRect:(NSRect)bounds;
@end
@interface NSWindow (TavrinShim)
@property(getter=isRestorable) BOOL restorable;
@property BOOL preventsApplicationTerminationWhenModal;
@property(strong) __kindof NSView* contentView;
@property(readonly, getter=isVisible) BOOL visible;
@property(readonly) NSUInteger occlusionState;
@end
@interface NSAlert (TavrinShim)
@property(readonly) NSWindow* window;
@end
@interface NSPopover (TavrinShim)
@property(readonly, getter=isShown) BOOL shown;
@end
@interface NSScreen (TavrinShim)
@property(readonly) NSEdgeInsets safeAreaInsets;
@property(readonly) NSRect auxiliaryTopLeftArea;
@property(readonly) NSRect auxiliaryTopRightArea;
@end
@interface NSMenu (TavrinShim)
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)point inView:(NSView*)view;
@end
@interface NSAnimationContext (TavrinShim)
+ (void)runAnimationGroup:(void (^)(NSAnimationContext*))changes;
@end
@interface NSDraggingItem : NSObject
@property(strong) id writer;
@property(strong) id contents;
@property NSRect draggingFrame;
- (instancetype)initWithPasteboardWriter:(id)writer;
- (void)setDraggingFrame:(NSRect)frame contents:(id)contents;
@end
@interface NSDraggingSession : NSObject
@end
@interface NSView (TavrinShimDragging)
- (NSDraggingSession*)beginDraggingSessionWithItems:(NSArray*)items event:(NSEvent*)event source:(id)source;
@end
@interface NSStatusItem (TavrinShim)
@property(readonly) NSStatusBarButton* button;
@property(copy) NSString* autosaveName;
@property(getter=isVisible) BOOL visible;
@end
