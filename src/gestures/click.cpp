#include "gestures/click.h"

#include "concurrency/waits.h"
#include "gestures/pointer_gesture.h"

#include <utility>

namespace tavrin {

// The events are the platform's, which outlives every job.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-reference-coroutine-parameters)
Task<GestureResult> postClick(Events& events, Click click) {
    MouseEvent up{.type = MouseEventType::LeftUp,
                  .location = click.location,
                  .clickState = 1,
                  .fields = std::move(click.fields),
                  .source = std::move(click.source)};
    auto down = up;
    down.type = MouseEventType::LeftDown;
    const auto gesture =
        PointerGesture::create(events, std::move(up), {.tap = EventTap::Session, .process = {}});
    if (!gesture || !gesture->post(std::move(down))) co_return GestureResult::noEvents;
    if (co_await sleepFor(Click::holdWait) == Wake::CutShort) co_return GestureResult::cancelled;
    gesture->release();
    if (click.settleWait > Seconds{0} && co_await sleepFor(click.settleWait) == Wake::CutShort)
        co_return GestureResult::cancelled;
    co_return GestureResult::posted;
}

} // namespace tavrin
