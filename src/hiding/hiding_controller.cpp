#include "hiding/hiding_controller.h"

#include "concurrency/waits.h"

namespace tavrin {

HidingController::HidingController(Scheduler& scheduler, Settings& settings, BarActivity& activity,
                                   HidingMechanism& mechanism, FailureMessage& failure)
    : scheduler_(scheduler)
    , settings_(settings)
    , activity_(activity)
    , mechanism_(mechanism)
    , failure_(failure)
    , mechanismObservation_(mechanism.mustReveal.subscribe(
          [this](const std::string& sentence) { restoreFullMenuBar(sentence); })) {}

void HidingController::toggleCollapse() {
    if (activity_.isCollapsed.get()) {
        expand(Persist::Yes);
    } else {
        requestCollapse(Persist::Yes, OnFailure::ShowConfiguration);
    }
}

Task<CollapseOutcome> HidingController::collapse(Persist persist) {
    if (auto reason = mechanism_.refusal()) co_return fail(std::move(*reason));
    const int generation = ++generation_;
    mechanism_.hideNow();
    activity_.isCollapsed.set(true);
    auto confirmed = co_await mechanism_.confirmHidden();
    if (generation != generation_) co_return CollapseOutcome::superseded;
    if (!confirmed) {
        const bool isCutShort = co_await isCancelled();
        expand(isCutShort ? Persist::No : persist);
        if (isCutShort) co_return CollapseOutcome::superseded;
        co_return fail(std::move(confirmed.error()));
    }
    remember(persist, true);
    mechanism_.didHide();
    co_return CollapseOutcome::hidden;
}

CollapseOutcome HidingController::fail(std::string sentence) {
    failure_.tell(std::move(sentence));
    return CollapseOutcome::failed;
}

void HidingController::expand(Persist persist) {
    ++generation_;
    mechanism_.reveal();
    activity_.isCollapsed.set(false);
    activity_.isCollapsePending.set(false);
    remember(persist, false);
}

void HidingController::remember(Persist persist, bool isCollapsed) {
    if (persist == Persist::Yes) settings_.setBoolean(Settings::shouldStartCollapsedKey, isCollapsed);
}

void HidingController::restoreFullMenuBar(const std::string& sentence) {
    expand(Persist::No);
    failure_.tell(sentence);
    failed_.emit();
}

void HidingController::requestCollapse(Persist persist, OnFailure onFailure) {
    requested_.emit();
    activity_.isCollapsePending.set(true);
    // In place of an older request, which is cancelled by that.
    requestTask_ = start(scheduler_, performRequest(persist, onFailure));
}

Task<> HidingController::performRequest(Persist persist, OnFailure onFailure) {
    const bool isPrepared = co_await mechanism_.prepare();
    if (co_await isCancelled()) co_return;
    auto outcome = CollapseOutcome::failed;
    if (isPrepared) outcome = co_await collapse(persist);
    if (co_await isCancelled()) co_return;
    activity_.isCollapsePending.set(false);
    if (outcome == CollapseOutcome::failed && onFailure == OnFailure::ShowConfiguration) failed_.emit();
}

void HidingController::cancelRequests() {
    requestTask_.cancel();
    activity_.isCollapsePending.set(false);
}

void HidingController::adaptToScreens() {
    if (activity_.isCollapsed.get()) mechanism_.adaptToScreens();
}

Task<> HidingController::restoreForTermination() {
    cancelRequests();
    mechanism_.reveal();
    co_await mechanism_.settled();
}

} // namespace tavrin
