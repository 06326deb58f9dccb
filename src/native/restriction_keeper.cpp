#include "native/restriction_keeper.h"

#include <utility>

namespace tavrin {

Task<RestrictionKeeper::Outcome> RestrictionKeeper::want(NativeVisibilityPlan plan) {
    setWish(std::move(plan));
    const Reply reply(scheduler_);
    waiting_ = reply;
    const auto outcome = co_await reply.wait();
    co_return outcome.value_or(Granted::superseded);
}

void RestrictionKeeper::wish(NativeVisibilityPlan plan) { setWish(std::move(plan)); }

void RestrictionKeeper::wantNothing() {
    setWish(std::nullopt);
    const bool wasRestricted = isRestricted();
    restriction_.release();
    if (wasRestricted) changed.emit();
}

void RestrictionKeeper::renew() {
    auto plan = wish_;
    wantNothing();
    if (plan) wish(*std::move(plan));
}

void RestrictionKeeper::setWish(std::optional<NativeVisibilityPlan> plan) {
    settle(Granted::superseded);
    wish_ = std::move(plan);
    ++wishNumber_;
    if (wish_ && !fulfilment_.isRunning()) fulfilment_ = start(scheduler_, fulfil());
}

Task<> RestrictionKeeper::fulfil() {
    while (wish_) {
        const int number = wishNumber_;
        const auto before = restriction_.activePlan();
        const auto outcome = co_await restriction_.apply(*wish_);
        if (co_await isCancelled()) co_return;
        if (restriction_.activePlan() != before) changed.emit();
        if (number != wishNumber_) continue;
        if (!outcome) co_return fail(outcome.error());
        if (restriction_.activePlan() == wish_) co_return settle(Granted::inForce);
    }
}

/// What was in force still is.
void RestrictionKeeper::fail(const MenuBarVisibilityRestriction::Failure& failure) {
    wish_ = restriction_.activePlan();
    settle(std::unexpected(failure.description()));
}

void RestrictionKeeper::settle(Outcome outcome) {
    if (const auto reply = std::exchange(waiting_, std::nullopt)) reply->give(std::move(outcome));
}

} // namespace tavrin
