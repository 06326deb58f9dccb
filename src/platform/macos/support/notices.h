#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "platform/macos/support/apple.h"

#include <functional>

namespace tavrin::macos {

// Each function calls `handler`, posted to the main thread, after every notice of the system until the
// subscription goes. It stops listening to the system then.

Subscription observe(Scheduler& scheduler, NSNotificationCenter* center, NSNotificationName name,
                     std::function<void()> handler);

/// Notices of other processes. They also arrive while this application isn't active, which AppKit would
/// otherwise put off until it is.
Subscription observeDistributed(Scheduler& scheduler, NSNotificationName name, std::function<void()> handler);

/// Changes of a property that is compliant with key-value observing and changes on the main thread.
Subscription observeProperty(Scheduler& scheduler, NSObject* object, NSString* keyPath,
                             std::function<void()> handler);

} // namespace tavrin::macos
