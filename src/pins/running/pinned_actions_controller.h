#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "pins/running/pinned_notice.h"
#include "pins/running/pinned_run_failure.h"
#include "pins/running/pinned_runner.h"
#include "pins/store/pinned_action_store.h"
#include "platform/menu.h"
#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tavrin {

/// Runs pins on request, one at a time, and tells the user when one didn't run. Applications are asked on a
/// queue of its own, so that the main thread never waits for one.
class PinnedActionsController {
  public:
    /// A request for the same pin within this time is the same request: a key that repeats, a double click.
    static constexpr Seconds repeatedRequestSpan{0.5};

    struct Hooks {
        std::function<bool()> isHidingItems;
        std::function<std::optional<Rect>()> noticeAnchor; // on the screen; none while there is none
        std::function<void(const Uuid&)> editPin;
    };

    /// All that `platform` refers to, and the permission, outlive the controller.
    PinnedActionsController(const Platform& platform, AccessibilityPermission& permission, Hooks hooks);
    PinnedActionsController(const PinnedActionsController&) = delete;
    PinnedActionsController& operator=(const PinnedActionsController&) = delete;

    PinnedActionStore& store() { return store_; }

    const Published<std::optional<Uuid>>& runningPinID() const { return runningPinID_; }

    /// Runs the pin, or tells why it doesn't. A pin that has never run asks first.
    void run(const Uuid& id);

    /// An entry for each pin; no section, and no separator, without pins.
    void appendMenuSection(Menu& menu);

    /// Ends the run in progress for good: the process is about to end. A menu that is open is told to close.
    void cancel() { runTask_.cancel(); }

  private:
    struct RunRequest {
        Uuid id;
        Seconds time{0};
    };

    bool accepts(const Uuid& id);
    void tellThatAnotherRuns(const PinnedAction& pin);
    void confirmFirstRun(const PinnedAction& pin);
    void answered(const Uuid& id, std::size_t button);
    void start(PinnedAction pin);
    Task<> perform(PinnedAction pin);
    Task<PinnedRunResult> runToItsEnd(PinnedAction pin);
    void report(const PinnedAction& pin, const PinnedRunFailure& failure);

    void show(PinnedNotice notice) { notice_.show(std::move(notice), hooks_.noticeAnchor()); }

    const Platform& platform_;
    AccessibilityPermission& permission_;
    Hooks hooks_;
    PinnedActionStore store_;
    Published<std::optional<Uuid>> runningPinID_;
    std::optional<RunRequest> lastRunRequest_;
    PinnedNoticePanel notice_;
    std::unique_ptr<Alert> confirmation_;
    Subscription permissionObservation_;
    std::unique_ptr<SerialQueue> queue_;
    PinnedRunner runner_;
    Job<> runTask_;
};

} // namespace tavrin
