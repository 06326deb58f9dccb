// What windows, screens and menus of AppKit have and GNUstep lacks.
#include "hung.h"
#include "replaced.h"

#import <AppKit/AppKit.h>
#include <CoreFoundation/CoreFoundation.h>

NSString* const NSWorkspaceActiveSpaceDidChangeNotification = @"NSWorkspaceActiveSpaceDidChangeNotification";
NSString* const NSWorkspaceScreensDidWakeNotification = @"NSWorkspaceScreensDidWakeNotification";
NSString* const NSWindowDidChangeOcclusionStateNotification = @"NSWindowDidChangeOcclusionStateNotification";

namespace {

void (*stopModalBefore)(id, SEL, NSInteger);

// An application that waits for events in a session notices neither the end of the session nor events of its
// own until something else wakes it.
void stopModal(id self, SEL selector, NSInteger code) {
    stopModalBefore(self, selector, code);
    NSEvent* event = [NSEvent otherEventWithType:NSApplicationDefined
                                        location:NSZeroPoint
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:0
                                         context:nil
                                         subtype:0
                                           data1:0
                                           data2:0];
    [NSApp postEvent:event atStart:YES];
    CFRunLoopPerformBlock(nullptr, nullptr,
                          ^{
                          });
}

} // namespace

@interface TavrinModalSessions : NSObject
@end

@implementation TavrinModalSessions

+ (void)load {
    stopModalBefore = tavrinReplaced(
        class_getInstanceMethod(objc_getClass("NSApplication"), @selector(stopModalWithCode:)), stopModal);
}

@end

@implementation NSWindow (TavrinShim)
HUNG_BOOL(isRestorable, setRestorable)
HUNG_BOOL(preventsApplicationTerminationWhenModal, setPreventsApplicationTerminationWhenModal)

- (NSUInteger)occlusionState {
    return self.isVisible ? NSWindowOcclusionStateVisible : 0;
}

@end
@implementation NSScreen (TavrinShim)

- (NSEdgeInsets)safeAreaInsets {
    return {0, 0, 0, 0};
}

- (NSRect)auxiliaryTopLeftArea {
    return NSZeroRect;
}

- (NSRect)auxiliaryTopRightArea {
    return NSZeroRect;
}

@end
@implementation NSMenu (TavrinShim)

- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)point inView:(NSView*)view {
    NSEvent* event = [NSEvent mouseEventWithType:NSRightMouseDown
                                        location:[view convertPoint:point toView:nil]
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:view.window.windowNumber
                                         context:nil
                                     eventNumber:0
                                      clickCount:1
                                        pressure:1];
    [NSMenu popUpContextMenu:self withEvent:event forView:view];
    return YES;
}

@end
@implementation NSAnimationContext (TavrinShim)

+ (void)runAnimationGroup:(void (^)(NSAnimationContext*))changes {
    changes([NSAnimationContext currentContext]);
}

@end
