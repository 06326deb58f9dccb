// Monitors of the events that the application sends to its windows. While a modelled Mac answers: of the keys
// that its program gets, and copies of what its person does elsewhere.
#include "platform/event_monitors.h"

#include "answering_mac.h"
#include "platform/keyboard.h"
#include "replaced.h"

#import <AppKit/AppKit.h>

@interface TavrinEventMonitor : NSObject {
  @public
    tavrin::Subscription modelled_;
}
@property unsigned long long mask;
@property(copy) NSEvent* (^handler)(NSEvent*);
@end

@implementation TavrinEventMonitor
@end

/// In place of an NSEvent, which can't be made with all of this.
@interface TavrinWatchedEvent : NSObject {
  @public
    tavrin::WatchedEvent event_;
}
@end

@implementation TavrinWatchedEvent

- (NSEventType)type {
    return static_cast<NSEventType>(event_.type);
}

- (NSUInteger)phase {
    return event_.scroll->isMomentum ? 0 : static_cast<NSUInteger>(event_.scroll->phase);
}

- (NSUInteger)momentumPhase {
    return event_.scroll->isMomentum ? static_cast<NSUInteger>(tavrin::ScrollPhase::Changed) : 0;
}

- (BOOL)hasPreciseScrollingDeltas {
    return event_.scroll->isPrecise;
}

- (CGFloat)scrollingDeltaX {
    return event_.scroll->deltaX;
}

- (CGFloat)scrollingDeltaY {
    return event_.scroll->deltaY;
}

- (BOOL)isDirectionInvertedFromDevice {
    return event_.scroll->isDirectionInverted;
}

@end

namespace {

NSMutableArray* monitors() {
    static NSMutableArray* all = [NSMutableArray array];
    return all;
}

void (*sendEventBefore)(id, SEL, NSEvent*);

void sendEvent(id self, SEL selector, NSEvent* event) {
    for (TavrinEventMonitor* monitor in [monitors() copy]) {
        if (!event) return;
        if (monitor.mask & (1ull << event.type)) event = monitor.handler(event);
    }
    if (event) sendEventBefore(self, selector, event);
}

NSEvent* eventFor(const tavrin::KeyPress& press) {
    return [NSEvent keyEventWithType:NSKeyDown
                            location:NSZeroPoint
                       modifierFlags:press.modifierFlags
                           timestamp:0
                        windowNumber:0
                             context:nil
                          characters:@""
         charactersIgnoringModifiers:@""
                           isARepeat:NO
                             keyCode:static_cast<unsigned short>(press.keyCode)];
}

tavrin::Subscription modelledKeysFor(NSEvent* (^handler)(NSEvent*)) {
    return answeringMac()->keyboard.monitorKeyDown([handler](const tavrin::KeyPress& press) {
        return handler(eventFor(press)) ? tavrin::KeyHandling::PassedOn : tavrin::KeyHandling::Consumed;
    });
}

tavrin::Subscription modelledCopiesFor(unsigned long long mask, void (^handler)(NSEvent*)) {
    return answeringMac()->eventMonitors.watch(mask, [handler](const tavrin::WatchedEvent& event) {
        TavrinWatchedEvent* copy = [[TavrinWatchedEvent alloc] init];
        copy->event_ = event;
        handler((NSEvent*)(id)copy);
    });
}

NSPoint (*mouseLocationBefore)(id, SEL);

NSPoint mouseLocation(id self, SEL selector) {
    if (!answeringMac()) return mouseLocationBefore(self, selector);
    const auto place = answeringMac()->eventMonitors.pointerLocation();
    NSScreen* primary = NSScreen.screens.firstObject;
    return NSMakePoint(place.x, NSMaxY(primary.frame) - place.y);
}

} // namespace

@interface TavrinEventMonitors : NSObject
@end

@implementation TavrinEventMonitors

+ (void)load {
    sendEventBefore = tavrinReplaced(
        class_getInstanceMethod(objc_getClass("NSApplication"), @selector(sendEvent:)), sendEvent);
    mouseLocationBefore = tavrinReplaced(
        class_getClassMethod(objc_getClass("NSEvent"), @selector(mouseLocation)), mouseLocation);
}

@end

@implementation NSEvent (TavrinShim)

- (BOOL)hasPreciseScrollingDeltas {
    return NO;
}

- (CGFloat)scrollingDeltaX {
    return self.deltaX;
}

- (CGFloat)scrollingDeltaY {
    return self.deltaY;
}

- (BOOL)isDirectionInvertedFromDevice {
    return NO;
}

+ (id)addLocalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(NSEvent* (^)(NSEvent*))handler {
    TavrinEventMonitor* monitor = [[TavrinEventMonitor alloc] init];
    monitor.mask = mask;
    monitor.handler = handler;
    if (answeringMac())
        monitor->modelled_ = modelledKeysFor(monitor.handler);
    else
        [monitors() addObject:monitor];
    return monitor;
}

+ (id)addGlobalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(void (^)(NSEvent*))handler {
    TavrinEventMonitor* monitor = [[TavrinEventMonitor alloc] init];
    if (answeringMac()) monitor->modelled_ = modelledCopiesFor(mask, handler);
    return monitor;
}

+ (void)removeMonitor:(id)monitor {
    if ([monitor isKindOfClass:TavrinEventMonitor.class])
        static_cast<TavrinEventMonitor*>(monitor)->modelled_.cancel();
    [monitors() removeObject:monitor];
}

@end
