#pragma once

#include "concurrency/job.h"
#include "discovery/item_inventory.h"
#include "hiding/bar_activity.h"
#include "hiding/own_status_items.h"
#include "native/expanded_restriction.h"
#include "native/policy/native_expanded_rescue_latch.h"
#include "native/policy/native_item_catalog.h"
#include "native/restriction_keeper.h"
#include "platform/platform.h"
#include "settings/settings.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tavrin {

/// Keeps the latch in step with what scans of the revealed menu bar find, and scans again where it takes a
/// look to learn whether a change has worked. Nothing is judged while nobody can see the bar. Main thread.
class ExpandedRescue {
  public:
    struct Uses {
        const Platform& platform;
        const BarActivity& activity;
        OwnStatusItems& items;
        ItemInventory& inventory;
        Settings& settings;
        RestrictionKeeper& keeper;
        ExpandedRestriction& restriction;
        NativeExpandedRescueLatch& latch;
    };

    explicit ExpandedRescue(const Uses& uses);
    ExpandedRescue(const ExpandedRescue&) = delete;
    ExpandedRescue& operator=(const ExpandedRescue&) = delete;

    /// Forgets all units: the bar is hidden or revealed anew. What is in force stays so.
    void suspend();

    // Items come up to 1.2 s after their application has started.

    void applicationsLaunched() { scanLater(launchScanWait); }

    void applicationsEnded();

  private:
    static constexpr Seconds launchScanWait{1.5};
    static constexpr Seconds endScanWait{0.3};
    static constexpr Seconds releaseScanWait{0.7};
    static constexpr Seconds unconfirmedScanWait{0.3};
    static constexpr Seconds judgementMargin{0.1}; // after the time that a release is given

    bool isJudged(const ScanResult& scan) const;
    void noteScan(const ScanResult& scan);
    void update(const ScanResult& scan);
    bool releaseFitting(const std::optional<LaneLayout>& lane);
    void retainRunning();
    std::optional<LaneLayout> laneOf(const ScanResult& scan,
                                     const std::vector<MenuBarItemSnapshot>& trapped) const;
    std::optional<Seconds> nextLook(bool hasReleased) const;
    void storeIfChanged(const std::set<std::string>& before);
    void scanLater(Seconds wait);
    Task<> scanAfter(Seconds wait);

    Uses uses_;
    NativeItemCatalog catalog_;
    bool isScanRestricted_ = false; // the one in progress
    Subscription scanBegin_;
    Subscription restrictionChange_;
    Subscription scanEnd_;
    Job<> rescanTask_;
    Job<> rescueScanTask_;
};

} // namespace tavrin
