#pragma once

#include "concurrency/virtual_scheduler.h"

#include <memory>
#include <utility>

namespace mac_model {

/// Work for later, which is dropped when its owner is destroyed first.
class WorldCalls {
  public:
    explicit WorldCalls(tavrin::VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    /// In the world, whatever the program's main thread does.
    void after(tavrin::Seconds delay, tavrin::Work work) {
        scheduler_.callInWorldAfter(delay, guarded(std::move(work)));
    }

    /// When the program's main loop turns.
    void post(tavrin::Work work) { scheduler_.post(guarded(std::move(work))); }

  private:
    tavrin::Work guarded(tavrin::Work work) const {
        return [alive = std::weak_ptr(alive_), work = std::move(work)] {
            if (!alive.expired()) work();
        };
    }

    tavrin::VirtualScheduler& scheduler_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

} // namespace mac_model
