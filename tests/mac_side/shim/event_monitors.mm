// Monitors of the events that the application sends to its windows; of keys while a modelled Mac answers,
// those that its program gets.
#include "answering_mac.h"
#include "platform/keyboard.h"

#import <AppKit/AppKit.h>
#include <objc/runtime.h>

@interface TavrinEventMonitor : NSObject {
  @public
    tavrin::Subscription modelledKeys_;
}
@property unsigned long long mask;
@property(copy) NSEvent* (^handler)(NSEvent*);
@end

@implementation TavrinEventMonitor
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

} // namespace

@interface TavrinEventMonitors : NSObject
@end

@implementation TavrinEventMonitors

+ (void)load {
    const Method method = class_getInstanceMethod(objc_getClass("NSApplication"), @selector(sendEvent:));
    const IMP before =
        method_setImplementation(method, reinterpret_cast<IMP>(reinterpret_cast<void*>(sendEvent)));
    sendEventBefore = reinterpret_cast<void (*)(id, SEL, NSEvent*)>(reinterpret_cast<void*>(before));
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
        monitor->modelledKeys_ = modelledKeysFor(monitor.handler);
    else
        [monitors() addObject:monitor];
    return monitor;
}

+ (id)addGlobalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(void (^)(NSEvent*))handler {
    return [[NSObject alloc] init];
}

+ (void)removeMonitor:(id)monitor {
    if ([monitor isKindOfClass:TavrinEventMonitor.class])
        static_cast<TavrinEventMonitor*>(monitor)->modelledKeys_.cancel();
    [monitors() removeObject:monitor];
}

@end
