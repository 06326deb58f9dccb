#pragma once

#include "input/devices.h"
#include "platform/events.h"
#include "system/behaviour.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>

namespace mac_model {

/// The value of the field; 0 when the event doesn't set it.
std::int64_t fieldOf(const MouseEvent&, EventField);

/// The window that the event names; 0 when it names none.
std::int64_t windowOf(const MouseEvent&);

bool hasCommand(const MouseEvent&);

/// Tells which events belong to one press: since macOS 26 those with its number.
class EventNumbers {
  public:
    EventNumbers(const EventCounts& counts, MacOSVersion version) : counts_(counts), version_(version) {}

    /// The press's number when it is higher than those of all presses before; else 0, as no event can be tied
    /// to this press.
    std::int64_t usable(const MouseEvent& press) const;
    bool continues(const MouseEvent&, std::int64_t pressNumber) const;

  private:
    const EventCounts& counts_;
    MacOSVersion version_;
};

} // namespace mac_model
