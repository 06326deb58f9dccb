#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "core/item_placer.h"
#include "hiding/bar_activity.h"
#include "hiding/failure_message.h"
#include "hiding/hiding_controller.h"
#include "hiding/hiding_mechanism.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// How an apply has ended. One that was cancelled, or that the user has stopped, tells no outcome.
enum class ApplyOutcome {
    hidden,     // everything is in its place, and what is to be hidden is hidden
    incomplete, // the bar is expanded, and the failure message says why
    superseded, // a later request to hide or to reveal has taken its place
};

/// Makes the menu bar match what the user wants hidden: shows everything, has the items placed, and hides
/// when all are where they should be. One apply runs at a time; a newer one cancels it, and so does a request
/// to hide.
class ConfigurationApplier {
  public:
    struct Uses {
        Scheduler& scheduler;
        AccessibilityPermission& permission;
        BarActivity& activity;
        FailureMessage& failure;
        HidingMechanism& mechanism;
        HidingController& hiding;
        ItemInventory& inventory;
        ItemPlacer& placer;
    };

    explicit ConfigurationApplier(const Uses& uses);
    ConfigurationApplier(const ConfigurationApplier&) = delete;
    ConfigurationApplier& operator=(const ConfigurationApplier&) = delete;

    /// One line for the user; empty between items.
    const Published<std::string>& progress() const { return uses_.placer.progress(); }

    /// Starts an apply, unless Accessibility is not granted: then the user is only told so. A press of the
    /// mouse button while an item is being dragged stops it.
    void applyConfigurationAndHide();

    /// Applies and waits for the end; none when the apply, or the awaiting job, was cancelled.
    Task<std::optional<ApplyOutcome>> applyConfiguration();

    /// Fires when an apply has ended that nobody cancelled or stopped.
    Subscription onEnded(std::function<void(ApplyOutcome)> handler) {
        return ended_.subscribe(std::move(handler));
    }

    /// When this returns, no button is down, the pointer is back, and nothing is being applied.
    void cancelPendingConfiguration() { pendingConfigurationTask_.cancel(); }

  private:
    static constexpr Seconds settleWait{0.22}; // for the status items to find their places

    using Failures = std::vector<ConfigurationFailure>;

    Task<ApplyOutcome> perform(PressDuringDrag press);
    /// None when it was cancelled or stopped.
    Task<std::optional<ApplyOutcome>> performUntilStopped(PressDuringDrag press);
    bool isObstructed();
    Task<> prepare();
    Task<ApplyOutcome> finish(Failures failures);

    const Uses uses_;
    Signal<ApplyOutcome> ended_;
    Subscription requestObservation_;
    Job<ApplyOutcome> pendingConfigurationTask_;
};

} // namespace tavrin
