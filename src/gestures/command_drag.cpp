#include "gestures/command_drag.h"

#include "concurrency/waits.h"
#include "gestures/pointer_gesture.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace tavrin {

namespace {

constexpr Seconds arrivalWait{0.06};
constexpr Seconds pressWait{0.08};
constexpr Seconds stepWait{0.015};
constexpr Seconds releaseWait{0.18};

/// The gesture tidies up behind itself when the last of the job's frames has gone.
using Gesture = std::shared_ptr<PointerGesture>;
using Source = std::shared_ptr<const EventSource>;

Source hostedSource(Events& events) {
    return events.createSource(
        {.state = EventSourceState::HidSystem,
         .localEventsSuppressionInterval = Seconds{0},
         .localEventsFilter = {{EventSuppressionState::RemoteMouseDrag, allLocalEvents}}});
}

MouseEvent eventOf(const Source& source, MouseEventType type, Point location) {
    return {.type = type,
            .location = location,
            .flags = type == MouseEventType::Moved ? noEventFlags : commandEventFlag,
            .clickState = {},
            .fields = {},
            .source = source};
}

/// `posted` when the item is held.
Task<GestureResult> press(Gesture gesture, Source source, Point from) {
    const auto moved = gesture->make(eventOf(source, MouseEventType::Moved, from));
    const auto down = gesture->make(eventOf(source, MouseEventType::LeftDown, from));
    if (!moved || !down) co_return GestureResult::noEvents;
    gesture->post(*moved);
    if (co_await sleepFor(arrivalWait) == Wake::CutShort) co_return GestureResult::cancelled;
    gesture->hideCursor();
    gesture->post(*down);
    if (co_await sleepFor(pressWait) == Wake::CutShort) co_return GestureResult::cancelled;
    gesture->watchForPresses();
    co_return GestureResult::posted;
}

Task<GestureResult> dragAndRelease(Gesture gesture, Source source, CommandDrag drag) {
    const int steps = drag.stepCount();
    for (int step = 1; step <= steps; ++step) {
        if (gesture->hasUserPressed()) co_return GestureResult::userPressed;
        const auto place = drag.stepPoint(step, steps);
        if (!gesture->post(eventOf(source, MouseEventType::LeftDragged, place)))
            co_return GestureResult::noEvents;
        if (co_await sleepFor(stepWait) == Wake::CutShort) co_return GestureResult::cancelled;
    }
    const bool hasUserPressed = gesture->hasUserPressed();
    gesture->release();
    // Cut short or not: the drag is complete.
    (void)co_await sleepFor(releaseWait);
    co_return hasUserPressed ? GestureResult::userPressed : GestureResult::posted;
}

} // namespace

int CommandDrag::stepCount() const {
    constexpr double pointsPerStep = 18;
    const double distance = std::hypot(to.x - from.x, to.y - from.y);
    return static_cast<int>(std::clamp(distance / pointsPerStep, 8.0, 28.0));
}

Point CommandDrag::stepPoint(int step, int count) const {
    if (step >= count) return to;
    return {from.x + (to.x - from.x) * step / count, from.y + (to.y - from.y) * step / count};
}

// The events are the platform's, which outlives every job.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-reference-coroutine-parameters)
Task<GestureResult> postCommandDrag(Events& events, CommandDrag drag) {
    if (co_await isCancelled()) co_return GestureResult::cancelled;
    Source source;
    if (drag.usesHostedMenuBar == UsesHostedMenuBar::Yes) {
        source = hostedSource(events);
        if (!source) co_return GestureResult::noEvents;
    }
    const Gesture gesture = PointerGesture::create(events, eventOf(source, MouseEventType::LeftUp, drag.to),
                                                   {.tap = EventTap::Hid, .process = {}});
    if (!gesture) co_return GestureResult::noEvents;
    const auto held = co_await press(gesture, source, drag.from);
    if (held != GestureResult::posted) co_return held;
    co_return co_await dragAndRelease(gesture, source, drag);
}

} // namespace tavrin
