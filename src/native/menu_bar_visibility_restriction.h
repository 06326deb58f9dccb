#pragma once

#include "concurrency/answer.h"
#include "concurrency/job.h"
#include "native/policy/native_visibility_plan.h"
#include "platform/visibility_service.h"

#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// Holds at most one list of allowed items in force. A new one is in force before the old one is lifted, so
/// that no item flashes into view between two plans. An activation, once begun, goes on to its end whether or
/// not anyone still waits for it, because one that is cut short would be nobody's. Main thread.
class MenuBarVisibilityRestriction {
  public:
    /// Why a plan is not in force.
    struct Failure {
        enum class Kind { rejected, unavailable, timedOut };

        Kind kind = Kind::unavailable;
        std::string reason{}; // the system's, when it rejected

        /// A sentence for the user.
        std::string description() const;

        bool operator==(const Failure&) const = default;
    };

    using Outcome = std::expected<void, Failure>;

    MenuBarVisibilityRestriction(Scheduler& scheduler, VisibilityService& service)
        : scheduler_(scheduler)
        , service_(service) {}

    MenuBarVisibilityRestriction(const MenuBarVisibilityRestriction&) = delete;
    MenuBarVisibilityRestriction& operator=(const MenuBarVisibilityRestriction&) = delete;

    bool isAvailable() const { return service_.isAvailable(); }

    /// Puts the plan in force; nothing is sent when it is already. One that a later call has overtaken ends
    /// without an error and without effect; one that failed leaves the old plan in force.
    Task<Outcome> apply(NativeVisibilityPlan plan);

    /// Afterwards nothing is restricted, nor will be by an activation that is still in flight.
    void release();

    /// The one in force; none when nothing is restricted.
    const std::optional<NativeVisibilityPlan>& activePlan() const { return activePlan_; }

    bool isInFlight() const;

    /// Returns when no activation is in flight any longer, which is within the time-out.
    Task<> inFlightEnded();

  private:
    static constexpr Seconds activationTimeout{3.0};

    Task<Outcome> activate(int ticket, NativeVisibilityPlan plan,
                           std::unique_ptr<VisibilityAssertion> assertion);

    Scheduler& scheduler_;
    VisibilityService& service_;
    std::optional<NativeVisibilityPlan> activePlan_;
    std::unique_ptr<VisibilityAssertion> activeAssertion_;
    int generation_ = 0; // of what was asked for last
    std::vector<Job<Outcome>> activations_;
};

} // namespace tavrin
