#pragma once

#include "concurrency/scheduler.h"

#include <functional>
#include <memory>
#include <utility>

namespace tavrin::macos {

using Deliver = std::function<void(Work)>;

/// The way from one of AppKit's objects into the program. Work is posted to the main thread, so that it never
/// runs inside the AppKit call that brought it and may destroy what it came from. It is dropped when by then
/// the gate is gone: a callback refers to the owner of the object that it was given to. Main thread.
class CallbackGate {
  public:
    explicit CallbackGate(Scheduler& scheduler) : scheduler_(scheduler) {}

    CallbackGate(const CallbackGate&) = delete;
    CallbackGate& operator=(const CallbackGate&) = delete;

    /// May be kept longer than the gate; then it does nothing.
    Deliver deliver() const {
        return [&scheduler = scheduler_, open = std::weak_ptr(open_)](Work work) {
            if (!work || open.expired()) return;
            scheduler.post([open, work = std::move(work)] {
                if (!open.expired()) work();
            });
        };
    }

  private:
    struct Open {};

    Scheduler& scheduler_;
    std::shared_ptr<Open> open_ = std::make_shared<Open>();
};

} // namespace tavrin::macos
