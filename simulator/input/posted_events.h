#pragma once

#include "platform/events.h"

#include <optional>

namespace mac_model {

/// A synthetic event on its way: to a tap, or to one process alone.
struct PostedEvent {
    tavrin::MouseEvent event;
    std::optional<tavrin::EventTap> tap;
    std::optional<tavrin::ProcessIdentifier> process;
};

/// A synthetic key on its way to one process.
struct PostedKey {
    tavrin::KeyEvent event;
    tavrin::ProcessIdentifier process = 0;
};

} // namespace mac_model
