#pragma once

#include "concurrency/answer.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "native/menu_bar_visibility_restriction.h"

#include <expected>
#include <optional>
#include <string>

namespace tavrin {

/// Brings the restriction to the plan that was wished last. One activation is in flight at a time; wishes
/// that come meanwhile wait for its end, and only the newest of them is sent then. So many wishes cost one
/// activation an answer, and none lands after a later one. Nobody else calls the restriction. Main thread.
class RestrictionKeeper {
  public:
    enum class Granted {
        inForce,
        superseded, // by a later wish, or nobody waits any longer
    };

    /// The error is a sentence for the user; the plan before stays in force then.
    using Outcome = std::expected<Granted, std::string>;

    RestrictionKeeper(Scheduler& scheduler, MenuBarVisibilityRestriction& restriction)
        : scheduler_(scheduler)
        , restriction_(restriction) {}

    RestrictionKeeper(const RestrictionKeeper&) = delete;
    RestrictionKeeper& operator=(const RestrictionKeeper&) = delete;

    /// Wishes at once, and waits how that ends.
    Task<Outcome> want(NativeVisibilityPlan plan);

    /// Wishes without waiting; a failure is dropped, as the next event wishes again.
    void wish(NativeVisibilityPlan plan);

    /// Lifts what is restricted, at once.
    void wantNothing();

    /// Restricts anew, for a menu bar that has forgotten the list.
    void renew();

    bool isRestricted() const { return restriction_.activePlan().has_value(); }

    /// Nothing is restricted, and nothing may come to be by itself.
    bool isIdle() const { return !isRestricted() && !wish_ && !restriction_.isInFlight(); }

    const std::optional<NativeVisibilityPlan>& planInForce() const { return restriction_.activePlan(); }

    Task<> inFlightEnded() { return restriction_.inFlightEnded(); }

    /// Another plan is in force, or none.
    Signal<> changed;

  private:
    using Reply = Answer<Outcome>;

    void setWish(std::optional<NativeVisibilityPlan> plan);
    Task<> fulfil();
    void fail(const MenuBarVisibilityRestriction::Failure& failure);
    void settle(Outcome outcome);

    Scheduler& scheduler_;
    MenuBarVisibilityRestriction& restriction_;
    std::optional<NativeVisibilityPlan> wish_;
    int wishNumber_ = 0;
    std::optional<Reply> waiting_; // the newest wish, when anyone waits for it
    Job<> fulfilment_;
};

} // namespace tavrin
