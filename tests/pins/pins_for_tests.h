#pragma once

#include "pins/store/pinned_action.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tavrin {

inline Uuid idOf(std::uint8_t number) {
    Uuid id;
    id.bytes.back() = number;
    return id;
}

/// A pin named after its only step, in the application "org.example.app".
inline PinnedAction pinCalled(std::string name, std::uint8_t number) {
    PinnedAction pin;
    pin.id = idOf(number);
    pin.bundleIdentifier = "org.example.app";
    pin.applicationName = "Example";
    pin.path = {{name, {}}};
    pin.name = std::move(name);
    return pin;
}

} // namespace tavrin
