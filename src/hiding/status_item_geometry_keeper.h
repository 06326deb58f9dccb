#pragma once

#include "concurrency/job.h"
#include "hiding/failure_message.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"

#include <functional>
#include <string>

namespace tavrin {

/// Keeps the two facts true that hiding with a spacer stands on: the control's glyph is in the status area,
/// and the spacer ends where the control begins. Repairs by bringing the spacer to the control, and where
/// that isn't enough by starting the items over under fresh autosave names. Main thread.
class StatusItemGeometryKeeper {
  public:
    StatusItemGeometryKeeper(const Platform& platform, OwnStatusItems& items, FailureMessage& failure);

    /// Whether both facts hold, after a repair where they did not; a failed repair tells the user. True, and
    /// nothing repaired, while the menu bar isn't visible. Callers at the same time share one check. False
    /// also when the awaiting job is cancelled.
    Task<bool> ensureExpandedStatusItemGeometry();

    /// Restores the full menu bar and tells the user why.
    using Restore = std::function<void(std::string message)>;

    /// After a hide: calls `restore` when macOS has stopped drawing the control; when the menu bar isn't
    /// visible, not before it is again. A later call, and `abandonVerification`, make an earlier one void.
    void verifyOwnControlRemainsVisible(Restore restore);

    void abandonVerification();

  private:
    static constexpr Seconds rebuildWait{0.3};
    static constexpr Seconds stableWaitMax{1.2};
    static constexpr Seconds stablePollInterval{0.1};
    static constexpr Seconds verificationDelay{0.5};

    /// What is out of sight is taken for right.
    bool holdsOrIsUnseen() const { return holds() || !items_.isBarVisible(); }

    bool hasValidGlyph() const { return items_.validControlGlyphFrame().has_value(); }

    bool holds() const { return hasValidGlyph() && items_.isSpacerLeftOfControl(); }

    Task<bool> performExpandedStatusItemGeometryRepair();
    Task<bool> repair();
    Task<bool> rebuild(OwnStatusItems::PositionSeed controlSeed);
    Task<bool> waitForStableStatusItemGeometry();
    Task<bool> reseatSpacer();
    void reportFailure();
    Task<> verify();
    void verifyIfPostponed();

    const Platform& platform_;
    OwnStatusItems& items_;
    FailureMessage& failure_;
    Job<bool> pendingStatusItemGeometryTask_;
    Restore restore_;
    bool isVerificationPostponed_ = false;
    Job<> verificationTask_;
    Subscription sightObservation_;
};

} // namespace tavrin
