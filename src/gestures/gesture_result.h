#pragma once

namespace tavrin {

/// How a gesture has ended. It doesn't tell whether the gesture had an effect.
enum class GestureResult {
    posted,
    cancelled,   ///< before its end
    noEvents,    ///< the system made no source, or not the events
    userPressed, ///< before its end, because the user has pressed the mouse button meanwhile
};

} // namespace tavrin
