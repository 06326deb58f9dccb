#pragma once

#include "base/owner_gate.h"
#include "concurrency/virtual_scheduler.h"
#include "vocabulary/vocabulary.h"

#include <utility>

namespace mac_model {

/// Work for later, which is dropped when its owner is destroyed first.
class WorldCalls {
  public:
    explicit WorldCalls(VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    /// Runs in the world, even while the program's main thread is busy.
    void after(Seconds delay, Work work) {
        scheduler_.callInWorldAfter(delay, gate_.guarded(std::move(work)));
    }

    /// Runs when the program's main loop turns.
    void post(Work work) { scheduler_.post(gate_.guarded(std::move(work))); }

  private:
    VirtualScheduler& scheduler_;
    tavrin::OwnerGate gate_;
};

} // namespace mac_model
