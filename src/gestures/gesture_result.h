#pragma once

namespace tavrin {

/// What became of a gesture. Whether it had an effect, nobody tells.
enum class GestureResult {
    posted,
    cancelled, ///< before its end
    noEvents,  ///< the system made no source, or not the events
};

} // namespace tavrin
