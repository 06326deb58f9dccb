#pragma once

#include "discovery/item_inventory.h"
#include "hiding/bar_activity.h"
#include "hiding/hidden_items.h"
#include "hiding/hiding_mechanism.h"
#include "hiding/own_control_check.h"
#include "hiding/own_status_items.h"
#include "native/clock_lift.h"
#include "native/control_pinner.h"
#include "native/expanded_rescue.h"
#include "native/expanded_restriction.h"
#include "native/launch_follower.h"
#include "native/menu_bar_visibility_restriction.h"
#include "native/native_plans.h"
#include "native/policy/native_expanded_rescue_latch.h"
#include "native/restriction_keeper.h"
#include "platform/platform.h"
#include "settings/settings.h"

#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// Hides by telling macOS what to show. Here the parts that do so are put together, and the order of their
/// steps is kept; what is decided stands in the parts.
class RestrictionHiding final : public HidingMechanism {
  public:
    struct Uses {
        const Platform& platform;
        BarActivity& activity;
        OwnStatusItems& items;
        ItemInventory& inventory;
        const HiddenItems& hiddenItems;
        Settings& settings;
    };

    explicit RestrictionHiding(const Uses& uses);

    Task<bool> ensureLayout() override { co_return true; }

    Task<bool> prepare() override { co_return true; }

    std::optional<std::string> refusal() const override;
    void hideNow() override;
    Task<std::expected<void, std::string>> confirmHidden() override;
    void didHide() override;
    void reveal() override;
    void adaptToScreens() override;

    Task<bool> arrangeForApply() override { return pinner_.pin(); }

    std::optional<std::string> obstacleToPlacing() const override { return std::nullopt; }

    bool placesByPosition() const override { return false; }

    HiddenSet setting(const std::string& itemIdentifier, bool hidden, const HiddenSet& set) const override;
    bool isHidden(const MenuBarItemSnapshot& item, const HiddenSet& set) const override;
    bool canHide(const MenuBarItemSnapshot& item) const override;

    bool takesControlPress() override { return pinner_.takesPress(); }

    Task<> settled() override { return keeper_.inFlightEnded(); }

  private:
    bool isCollapsed() const { return uses_.activity.isCollapsed.get(); }

    std::vector<Subscription> observe();
    void forgetPassingThings();
    void restrictForState();
    void applicationsLaunched();
    void applicationsEnded();
    void letNewcomersIn();
    void screensChanged();
    void noteScan(const ScanResult& scan);
    Task<bool> isMissedByAgent();
    Task<> scanRevealed();

    Uses uses_;
    MenuBarVisibilityRestriction restriction_;
    RestrictionKeeper keeper_;
    NativePlans plans_;
    OwnControlCheck controlCheck_;
    NativeExpandedRescueLatch latch_;
    ExpandedRestriction expanded_;
    ExpandedRescue rescue_;
    ClockLift clock_;
    ControlPinner pinner_;
    LaunchFollower launches_;
    int confirmationsAwaited_ = 0; // more than one while an older one hasn't heard of its end
    bool isLastScanOfWholeBar_ = true;
    std::optional<int> ownItemCount_; // by the last scan
    std::vector<Subscription> observations_;
    Job<> revealedScanTask_;
};

} // namespace tavrin
