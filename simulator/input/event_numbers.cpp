#include "input/event_numbers.h"

namespace mac_model {

std::int64_t fieldOf(const MouseEvent& event, EventField field) {
    const auto found = event.fields.find(field);
    return found == event.fields.end() ? 0 : found->second;
}

std::int64_t windowOf(const MouseEvent& event) {
    for (const auto field :
         {EventField::WindowNumber, EventField::WindowThatCanHandle, EventField::WindowUnderPointer})
        if (const auto number = fieldOf(event, field); number != 0) return number;
    return 0;
}

bool hasCommand(const MouseEvent& event) { return (event.flags & tavrin::commandEventFlag) != 0; }

std::int64_t EventNumbers::usable(const MouseEvent& press) const {
    const auto number = fieldOf(press, EventField::EventNumber);
    const bool isNew = number > std::int64_t{counts_.of(MouseEventType::LeftDown)};
    return isNew ? number : 0;
}

bool EventNumbers::continues(const MouseEvent& event, std::int64_t pressNumber) const {
    constexpr int firstVersionThatCompares = 26;
    if (version_.major < firstVersionThatCompares) return true;
    return pressNumber != 0 && fieldOf(event, EventField::EventNumber) == pressNumber;
}

} // namespace mac_model
