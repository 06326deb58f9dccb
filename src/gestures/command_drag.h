#pragma once

#include "concurrency/task.h"
#include "gestures/gesture_result.h"
#include "platform/events.h"

namespace tavrin {

enum class UsesHostedMenuBar { No, Yes };

/// A drag with the Command key held, at a person's pace: macOS takes the events for one only then. It always
/// ends with the button up, the cursor visible and the pointer back in its place, also when it is cancelled.
struct CommandDrag {
    Point from;
    Point to;
    UsesHostedMenuBar usesHostedMenuBar = UsesHostedMenuBar::No;

    /// The number of events that make up the way.
    int stepCount() const;

    /// Step `step` of `count` on the straight way; the last is `to` itself.
    Point stepPoint(int step, int count) const;
};

Task<GestureResult> postCommandDrag(Events& events, CommandDrag drag);

} // namespace tavrin
