#pragma once

#include "concurrency/task.h"
#include "gestures/gesture_result.h"
#include "platform/events.h"

#include <cstdint>
#include <map>
#include <memory>

namespace tavrin {

/// A press and release of the left button at one place: the one way in which the program clicks. Events that
/// enter at the session's tap reach whatever lies there.
struct Click {
    /// How long the button is down.
    static constexpr Seconds holdWait{0.01};

    Point location;
    std::map<EventField, std::int64_t> fields{};         ///< address both events to a window
    std::shared_ptr<const EventSource> source = nullptr; ///< none: the events have no source
    Seconds settleWait{0};                               ///< before the pointer is put back
};

/// Clicks once and leaves nothing behind, as PointerGesture promises.
Task<GestureResult> postClick(Events& events, Click click);

} // namespace tavrin
