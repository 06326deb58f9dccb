#pragma once

#include "platform/event_monitors.h"
#include "seam/system/program_side.h"

#include <memory>
#include <utility>

namespace mac_model {

/// Monitors of others' events, which one life of the program's process has set up.
class ProgramEventMonitors final : public tavrin::EventMonitors {
  public:
    explicit ProgramEventMonitors(ProgramSide side) : side_(std::move(side)) {}

    Subscription watch(tavrin::EventMask, std::function<void(const tavrin::WatchedEvent&)> handler) override;

    Point pointerLocation() const override { return side_.mac.devices.pointer.at; }

  private:
    ProgramSide side_;
};

} // namespace mac_model
