#pragma once

#include "concurrency/scheduler.h"
#include "platform/event_monitors.h"

namespace tavrin::macos {

class MacEventMonitors final : public EventMonitors {
  public:
    explicit MacEventMonitors(Scheduler& scheduler) : scheduler_(scheduler) {}

    Subscription watch(EventMask events, std::function<void(const WatchedEvent&)> handler) override;
    Point pointerLocation() const override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
