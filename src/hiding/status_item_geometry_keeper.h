#pragma once

#include "concurrency/job.h"
#include "hiding/failure_message.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"

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

  private:
    static constexpr Seconds rebuildWait{0.3};
    static constexpr Seconds stableWaitMax{1.2};
    static constexpr Seconds stablePollInterval{0.1};

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

    const Platform& platform_;
    OwnStatusItems& items_;
    FailureMessage& failure_;
    Job<bool> pendingStatusItemGeometryTask_;
};

} // namespace tavrin
