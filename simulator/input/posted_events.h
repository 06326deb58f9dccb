#pragma once

#include "platform/events.h"
#include "vocabulary/vocabulary.h"

#include <optional>

namespace mac_model {

/// A synthetic event on its way: to a tap, or to one process alone.
struct PostedEvent {
    MouseEvent event;
    std::optional<EventTap> tap;
    std::optional<ProcessIdentifier> process;
};

/// A synthetic key on its way to one process.
struct PostedKey {
    KeyEvent event;
    ProcessIdentifier process = 0;
};

} // namespace mac_model
