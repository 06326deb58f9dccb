#include "platform/macos/support/notices.h"

#include "concurrency/due_work.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/support/main_thread.h"

#include <memory>
#include <utility>

using tavrin::Work;

@interface TavrinObserver : NSObject
- (instancetype)initWithWork:(Work)work;
- (void)noticed:(NSNotification*)notification;
@end

@implementation TavrinObserver {
    Work work_;
}

- (instancetype)initWithWork:(Work)work {
    if ((self = [super init])) work_ = std::move(work);
    return self;
}

- (void)noticed:(NSNotification*)notification {
    work_();
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    work_();
}

@end

namespace tavrin::macos {

namespace {

/// The centres don't hold their observers; the subscription does, and the gate with it.
struct Listener {
    Listener(Scheduler& scheduler, std::function<void()> handler) : gate(scheduler) {
        assertMainThread();
        observer =
            [[TavrinObserver alloc] initWithWork:[deliver = gate.deliver(),
                                                  work = sharedWork(std::move(handler))] { deliver(work); }];
    }

    CallbackGate gate;
    TavrinObserver* observer = nil;
};

} // namespace

Subscription observe(Scheduler& scheduler, NSNotificationCenter* center, NSNotificationName name,
                     std::function<void()> handler) {
    const auto listener = std::make_shared<Listener>(scheduler, std::move(handler));
    [center addObserver:listener->observer selector:@selector(noticed:) name:name object:nil];
    return Subscription(
        [listener, center, name] { [center removeObserver:listener->observer name:name object:nil]; });
}

Subscription observeDistributed(Scheduler& scheduler, NSNotificationName name,
                                std::function<void()> handler) {
    const auto listener = std::make_shared<Listener>(scheduler, std::move(handler));
    NSDistributedNotificationCenter* center = NSDistributedNotificationCenter.defaultCenter;
    [center addObserver:listener->observer
                  selector:@selector(noticed:)
                      name:name
                    object:nil
        suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    return Subscription(
        [listener, center, name] { [center removeObserver:listener->observer name:name object:nil]; });
}

Subscription observeProperty(Scheduler& scheduler, NSObject* object, NSString* keyPath,
                             std::function<void()> handler) {
    const auto listener = std::make_shared<Listener>(scheduler, std::move(handler));
    [object addObserver:listener->observer forKeyPath:keyPath options:0 context:nullptr];
    return Subscription(
        [listener, object, keyPath] { [object removeObserver:listener->observer forKeyPath:keyPath]; });
}

} // namespace tavrin::macos
