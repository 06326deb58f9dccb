#pragma once

#include "base/owner_gate.h"
#include "concurrency/scheduler.h"

#include <functional>
#include <utility>

namespace tavrin::macos {

using Deliver = std::function<void(Work)>;

/// The way from an object of AppKit's into the program. Work is posted to the main thread, so that it never
/// runs inside the AppKit call that brought it and may destroy that object. Work whose turn comes after the
/// gate has gone is dropped, because a callback refers to the owner of the object.
class CallbackGate {
  public:
    explicit CallbackGate(Scheduler& scheduler) : scheduler_(scheduler) {}

    /// May be kept longer than the gate; then it does nothing.
    Deliver deliver() const {
        return [&scheduler = scheduler_, pass = gate_.pass()](Work work) {
            if (work && pass.isOpen()) scheduler.post(pass.guarded(std::move(work)));
        };
    }

  private:
    Scheduler& scheduler_;
    OwnerGate gate_;
};

} // namespace tavrin::macos
