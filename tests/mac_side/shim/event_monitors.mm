// Monitors of the events that the application sends to its windows.
#import <AppKit/AppKit.h>
#include <objc/runtime.h>

@interface TavrinShimMonitor : NSObject
@property unsigned long long mask;
@property(copy) NSEvent* (^handler)(NSEvent*);
@end
@implementation TavrinShimMonitor
@end

static NSMutableArray* monitors() {
    static NSMutableArray* all = [NSMutableArray array];
    return all;
}

static void (*sendEventBefore)(id, SEL, NSEvent*);

static void sendEvent(id self, SEL selector, NSEvent* event) {
    for (TavrinShimMonitor* monitor in [monitors() copy]) {
        if (!event) return;
        if (monitor.mask & (1ull << event.type)) event = monitor.handler(event);
    }
    if (event) sendEventBefore(self, selector, event);
}

@interface TavrinShimStart : NSObject
@end
@implementation TavrinShimStart

+ (void)load {
    Method method = class_getInstanceMethod(objc_getClass("NSApplication"), @selector(sendEvent:));
    sendEventBefore = reinterpret_cast<void (*)(id, SEL, NSEvent*)>(reinterpret_cast<void*>(
        method_setImplementation(method, reinterpret_cast<IMP>(reinterpret_cast<void*>(sendEvent)))));
}

@end
@implementation NSEvent (TavrinShim)

+ (id)addLocalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(NSEvent* (^)(NSEvent*))handler {
    TavrinShimMonitor* monitor = [[TavrinShimMonitor alloc] init];
    monitor.mask = mask;
    monitor.handler = handler;
    [monitors() addObject:monitor];
    return monitor;
}

+ (id)addGlobalMonitorForEventsMatchingMask:(unsigned long long)mask handler:(void (^)(NSEvent*))handler {
    return [[NSObject alloc] init];
}

+ (void)removeMonitor:(id)monitor {
    [monitors() removeObject:monitor];
}

@end
