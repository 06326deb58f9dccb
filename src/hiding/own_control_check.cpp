#include "hiding/own_control_check.h"

#include "concurrency/waits.h"

namespace tavrin {

OwnControlCheck::OwnControlCheck(Scheduler& scheduler, OwnStatusItems& items, SecondSign secondSign)
    : scheduler_(scheduler)
    , items_(items)
    , secondSign_(std::move(secondSign))
    , sightObservation_(items.onSightChanged([this] { lookIfPostponed(); })) {}

void OwnControlCheck::verify(Restore restore) {
    restore_ = std::move(restore);
    isPostponed_ = false;
    task_ = start(scheduler_, look());
}

void OwnControlCheck::abandon() {
    isPostponed_ = false;
    task_.cancel();
}

void OwnControlCheck::lookIfPostponed() {
    if (isPostponed_ && items_.controlSight() != ControlSight::barNotVisible) verify(std::move(restore_));
}

Task<> OwnControlCheck::look() {
    // macOS takes an item off the screen for moments while it arranges the bar: only a second look counts.
    for (int look = 0; look < 2; ++look) {
        if (co_await sleepFor(delay) == Wake::CutShort) co_return;
        const auto sight = items_.controlSight();
        if (sight == ControlSight::drawn) co_return;
        isPostponed_ = sight == ControlSight::barNotVisible;
        if (isPostponed_) co_return;
    }
    if (secondSign_ && !co_await secondSign_()) co_return;
    if (co_await isCancelled()) co_return;
    restore_("macOS removed Tavrin’s own control while hiding items, so the full menu bar was restored. Move "
             "the app to "
             "the Applications folder, relaunch it, and try again.");
}

} // namespace tavrin
