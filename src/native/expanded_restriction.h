#pragma once

#include "hiding/bar_activity.h"
#include "hiding/own_control_check.h"
#include "hiding/own_status_items.h"
#include "native/native_plans.h"
#include "native/policy/native_expanded_rescue_latch.h"
#include "native/restriction_keeper.h"

namespace tavrin {

/// Withholds from the revealed menu bar what the tray offers instead, for as long as nothing speaks against
/// it. Failures are silent: the next event tries again. Main thread.
class ExpandedRestriction {
  public:
    /// All arguments outlive it.
    ExpandedRestriction(Scheduler& scheduler, const BarActivity& activity, OwnStatusItems& items,
                        const NativePlans& plans, const NativeExpandedRescueLatch& latch,
                        RestrictionKeeper& keeper);
    ExpandedRestriction(const ExpandedRestriction&) = delete;
    ExpandedRestriction& operator=(const ExpandedRestriction&) = delete;

    /// Brings the restriction to the present state. While items are hidden, and while they are about to be,
    /// that is for others to do.
    void sync();

    /// Whether nothing may be withheld now.
    bool isSuppressed() const;

    /// The bar was hidden and the control is still there, so lists are to be trusted again.
    void trustAgain() { isAllowListUnsafe_ = false; }

  private:
    bool isLeftToOthers() const;
    void followKeeper();
    void giveUp();

    const BarActivity& activity_;
    const NativePlans& plans_;
    const NativeExpandedRescueLatch& latch_;
    RestrictionKeeper& keeper_;
    OwnControlCheck controlCheck_;
    bool isAllowListUnsafe_ = false; // one has taken Tavrin's own control away
    Subscription keeperObservation_;
};

} // namespace tavrin
