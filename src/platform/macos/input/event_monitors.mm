#include "platform/macos/input/event_monitors.h"

#include "platform/macos/support/callback_gate.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <memory>
#include <utility>

namespace tavrin::macos {

namespace {

static_assert(std::to_underlying(WatchedEventType::LeftDown) == NSEventTypeLeftMouseDown);
static_assert(std::to_underlying(WatchedEventType::RightDown) == NSEventTypeRightMouseDown);
static_assert(std::to_underlying(WatchedEventType::Moved) == NSEventTypeMouseMoved);
static_assert(std::to_underlying(WatchedEventType::LeftDragged) == NSEventTypeLeftMouseDragged);
static_assert(std::to_underlying(WatchedEventType::Scroll) == NSEventTypeScrollWheel);
static_assert(std::to_underlying(ScrollPhase::Began) == NSEventPhaseBegan);
static_assert(std::to_underlying(ScrollPhase::Stationary) == NSEventPhaseStationary);
static_assert(std::to_underlying(ScrollPhase::Changed) == NSEventPhaseChanged);
static_assert(std::to_underlying(ScrollPhase::Ended) == NSEventPhaseEnded);
static_assert(std::to_underlying(ScrollPhase::Cancelled) == NSEventPhaseCancelled);
static_assert(std::to_underlying(ScrollPhase::MayBegin) == NSEventPhaseMayBegin);

Point pointerOnScreen() {
    return toRect(NSMakeRect(NSEvent.mouseLocation.x, NSEvent.mouseLocation.y, 0, 0)).origin();
}

/// Only scrolls have these properties; other events raise an exception when asked.
ScrollSample scrollFrom(NSEvent* event) {
    const bool isMomentum = event.momentumPhase != NSEventPhaseNone;
    return {.phase = static_cast<ScrollPhase>(event.phase),
            .isMomentum = isMomentum,
            .isPrecise = event.hasPreciseScrollingDeltas == YES,
            .deltaX = event.scrollingDeltaX,
            .deltaY = event.scrollingDeltaY,
            .isDirectionInverted = event.directionInvertedFromDevice == YES};
}

WatchedEvent watchedFrom(NSEvent* event) {
    WatchedEvent watched{static_cast<WatchedEventType>(event.type), pointerOnScreen(), std::nullopt};
    if (event.type == NSEventTypeScrollWheel) watched.scroll = scrollFrom(event);
    return watched;
}

} // namespace

Subscription MacEventMonitors::watch(EventMask events, std::function<void(const WatchedEvent&)> handler) {
    assertMainThread();
    auto gate = std::make_shared<CallbackGate>(scheduler_);
    const auto deliver = gate->deliver();
    const auto shared = std::make_shared<std::function<void(const WatchedEvent&)>>(std::move(handler));
    const id monitor =
        [NSEvent addGlobalMonitorForEventsMatchingMask:events
                                               handler:^(NSEvent* event) {
                                                   const auto watched = watchedFrom(event);
                                                   deliver([shared, watched] { (*shared)(watched); });
                                               }];
    return Subscription([monitor, gate = std::move(gate)] {
        if (monitor) [NSEvent removeMonitor:monitor];
    });
}

Point MacEventMonitors::pointerLocation() const {
    assertMainThread();
    return pointerOnScreen();
}

} // namespace tavrin::macos
