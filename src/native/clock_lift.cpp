#include "native/clock_lift.h"

#include "concurrency/waits.h"
#include "native/notification_center.h"
#include "native/policy/clock_place.h"
#include "platform/event_monitors.h"
#include "platform/screens.h"

#include <utility>

namespace tavrin {

ClockLift::ClockLift(const Platform& platform, BarActivity& activity, RestrictionKeeper& keeper,
                     std::function<void()> restore)
    : platform_(platform)
    , activity_(activity)
    , keeper_(keeper)
    , restore_(std::move(restore))
    , keeperObservation_(keeper.changed.subscribe([this] { followKeeper(); })) {}

void ClockLift::forget() {
    restoreTask_.cancel();
    activity_.isLiftedForClock.set(false);
    followKeeper();
}

void ClockLift::followKeeper() {
    using enum WatchedEventType;
    const bool isNeeded = keeper_.isRestricted() || activity_.isLiftedForClock.get();
    if (!isNeeded) return pointerMonitor_.cancel();
    if (pointerMonitor_) return;
    pointerMonitor_ =
        platform_.eventMonitors.watch(eventMask(LeftDown, Moved, LeftDragged), [this](const WatchedEvent&) {
            handlePointerLocation(platform_.eventMonitors.pointerLocation());
        });
}

/// Comes with every move of the pointer, so it asks nobody outside this process.
void ClockLift::handlePointerLocation(Point pointer) {
    const bool isLifted = activity_.isLiftedForClock.get();
    if (!keeper_.isRestricted() && !isLifted) return;
    if (ClockPlace::isAt(pointer, clockRects())) return lift();
    if (isLifted) scheduleRestore();
}

std::vector<Rect> ClockLift::clockRects() const {
    return clockRects_.empty() ? ClockPlace::fallbackClockRects(platform_.screens.screens()) : clockRects_;
}

void ClockLift::lift() {
    restoreTask_.cancel();
    if (activity_.isLiftedForClock.get()) return;
    activity_.isLiftedForClock.set(true);
    keeper_.wantNothing();
}

void ClockLift::scheduleRestore() {
    if (!restoreTask_.isRunning()) restoreTask_ = start(platform_.scheduler, restoreWhenGone());
}

Task<> ClockLift::restoreWhenGone() {
    const auto until = platform_.scheduler.now() + restoreWaitMax;
    while (platform_.scheduler.now() < until &&
           isNotificationCenterPresented(platform_.workspace, platform_.windowServer))
        if (co_await sleepFor(lookInterval) == Wake::CutShort) co_return;
    activity_.isLiftedForClock.set(false);
    restore_();
    followKeeper();
}

} // namespace tavrin
