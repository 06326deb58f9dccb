#pragma once

#include "concurrency/signal.h"
#include "input/event_log.h"
#include "input/pointer.h"
#include "platform/accessibility.h"
#include "platform/event_monitors.h"
#include "platform/events.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <map>

namespace mac_model {

/// How many events of each type the person's devices have made and processes have posted to a tap.
class EventCounts {
  public:
    void note(MouseEventType type) { ++counts_[type]; }

    std::uint32_t of(MouseEventType type) const {
        const auto found = counts_.find(type);
        return found == counts_.end() ? 0 : found->second;
    }

  private:
    std::map<MouseEventType, std::uint32_t> counts_;
};

/// An event of the pointer, and the process that it goes to; 0 is none that anyone asks about.
struct DeliveredEvent {
    tavrin::WatchedEvent event;
    ProcessIdentifier receiver = 0;
};

/// The one pointer of this Mac, and what happened to it.
struct Devices {
    Pointer pointer{};
    EventLog events{};
    Cursor cursor{pointer, events};
    EventCounts counts{};
    Signal<DeliveredEvent> onWatched{};

    Devices() = default;
    Devices(const Devices&) = delete;
    Devices& operator=(const Devices&) = delete;
};

} // namespace mac_model
