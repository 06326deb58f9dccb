#pragma once

#include "base/owner_gate.h"
#include "concurrency/scheduler.h"

#include <functional>
#include <utility>

namespace tavrin::macos {

using Deliver = std::function<void(Work)>;

/// The way from one of AppKit's objects into the program. Work is posted to the main thread, so that it never
/// runs inside the AppKit call that brought it and may destroy what it came from. It is dropped when by then
/// the gate is gone: a callback refers to the owner of the object that it was given to.
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
