#include "native/menu_bar_visibility_restriction.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

using Restriction = MenuBarVisibilityRestriction;

Restriction::Outcome failed(Restriction::Failure::Kind kind, std::string reason = {}) {
    return std::unexpected(Restriction::Failure{kind, std::move(reason)});
}

Restriction::Outcome outcomeOf(std::optional<std::string> error) {
    if (!error) return {};
    return failed(Restriction::Failure::Kind::rejected, *std::move(error));
}

} // namespace

std::string MenuBarVisibilityRestriction::Failure::description() const {
    switch (kind) {
    case Kind::rejected:
        return "macOS refused to hide menu bar items: " + reason;
    case Kind::unavailable:
        return "This macOS build does not expose the menu bar visibility interface Tavrin relies on.";
    case Kind::timedOut:
        break;
    }
    return "macOS did not confirm the menu bar change in time.";
}

Task<Restriction::Outcome> MenuBarVisibilityRestriction::apply(NativeVisibilityPlan plan) {
    if (!isAvailable()) co_return failed(Failure::Kind::unavailable);
    if (activePlan_ == plan) co_return Outcome();
    const int ticket = ++generation_;
    auto assertion = service_.make(plan.allowedSystemItems, plan.allowedBundleIdentifiers);
    if (!assertion) co_return failed(Failure::Kind::unavailable);
    std::erase_if(activations_, [](const auto& job) { return !job.isRunning(); });
    activations_.push_back(start(scheduler_, activate(ticket, std::move(plan), std::move(assertion))));
    const auto outcome = co_await activations_.back().result();
    co_return outcome.value_or(failed(Failure::Kind::timedOut));
}

Task<Restriction::Outcome>
MenuBarVisibilityRestriction::activate(int ticket, NativeVisibilityPlan plan,
                                       std::unique_ptr<VisibilityAssertion> assertion) {
    if (ticket != generation_) co_return Outcome(); // overtaken before it was sent
    const Answer<Outcome> answer(scheduler_);
    assertion->activate(
        [answer](std::optional<std::string> error) { answer.give(outcomeOf(std::move(error))); });
    const auto timeout =
        scheduler_.callAfter(activationTimeout, [answer] { answer.give(failed(Failure::Kind::timedOut)); });
    const auto given = co_await answer.wait();
    scheduler_.cancelTimer(timeout);
    const auto outcome = given.value_or(failed(Failure::Kind::timedOut));
    if (!outcome || ticket != generation_) {
        assertion->invalidate();
        co_return outcome;
    }
    activePlan_ = std::move(plan);
    const auto older = std::exchange(activeAssertion_, std::move(assertion));
    if (older) older->invalidate();
    co_return outcome;
}

void MenuBarVisibilityRestriction::release() {
    ++generation_;
    if (activeAssertion_) activeAssertion_->invalidate();
    activeAssertion_.reset();
    activePlan_.reset();
}

bool MenuBarVisibilityRestriction::isInFlight() const {
    return std::ranges::any_of(activations_, [](const auto& job) { return job.isRunning(); });
}

Task<> MenuBarVisibilityRestriction::inFlightEnded() {
    while (isInFlight()) {
        const auto running =
            std::ranges::find_if(activations_, [](const auto& job) { return job.isRunning(); });
        (void)co_await running->result();
        if (co_await isCancelled()) co_return;
    }
}

} // namespace tavrin
