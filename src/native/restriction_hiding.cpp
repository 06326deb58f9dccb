#include "native/restriction_hiding.h"

#include "concurrency/waits.h"
#include "native/policy/native_visibility_policy.h"
#include "platform/screens.h"

#include <utility>

namespace tavrin {

RestrictionHiding::RestrictionHiding(const Uses& uses)
    : uses_(uses)
    , restriction_(uses.platform.scheduler, uses.platform.visibilityService)
    , keeper_(uses.platform.scheduler, restriction_)
    , plans_(uses.platform, uses.hiddenItems)
    , controlCheck_(uses.platform.scheduler, uses.items, [this] { return isMissedByAgent(); })
    , expanded_(uses.platform.scheduler, uses.activity, uses.items, plans_, latch_, keeper_)
    , rescue_({.platform = uses.platform,
               .activity = uses.activity,
               .items = uses.items,
               .inventory = uses.inventory,
               .settings = uses.settings,
               .keeper = keeper_,
               .restriction = expanded_,
               .latch = latch_})
    , clock_(uses.platform, uses.activity, keeper_, [this] { restrictForState(); })
    , pinner_(uses.platform, uses.activity, uses.items, uses.inventory)
    , launches_(uses.platform.workspace, {.launched = [this] { applicationsLaunched(); },
                                          .ended = [this] { applicationsEnded(); },
                                          .menuBarRestarted = [this] { keeper_.renew(); }})
    , observations_(observe()) {}

/// The tray isn't among them: whoever puts it away says whether the bar is revealed afterwards.
std::vector<Subscription> RestrictionHiding::observe() {
    std::vector<Subscription> observations;
    const auto& activity = uses_.activity;
    for (const auto* suppresses : {&activity.isAwaitingInitialState, &activity.isCollapsePending,
                                   &activity.isConfigureOpen, &activity.isApplyingConfiguration})
        observations.push_back(suppresses->subscribe([this](const bool&) { expanded_.sync(); }));
    observations.push_back(uses_.platform.screens.onChanged([this] { screensChanged(); }));
    observations.push_back(
        uses_.inventory.onScanCompleted([this](const ScanResult& scan) { noteScan(scan); }));
    return observations;
}

std::optional<std::string> RestrictionHiding::refusal() const {
    if (restriction_.isAvailable()) return std::nullopt;
    return MenuBarVisibilityRestriction::Failure{}.description();
}

void RestrictionHiding::hideNow() { forgetPassingThings(); }

void RestrictionHiding::forgetPassingThings() {
    clock_.forget();
    rescue_.suspend();
    pinner_.cancel();
    revealedScanTask_.cancel();
}

/// A plan that another one of ours has overtaken is as good: that one rests on the newer state.
Task<std::expected<void, std::string>> RestrictionHiding::confirmHidden() {
    ++confirmationsAwaited_;
    const auto outcome = co_await keeper_.want(plans_.currentNativePlan());
    --confirmationsAwaited_;
    if (co_await isCancelled()) co_return std::unexpected(std::string());
    if (!outcome) co_return std::unexpected(outcome.error());
    letNewcomersIn(); // those that have come meanwhile
    co_return std::expected<void, std::string>();
}

void RestrictionHiding::didHide() {
    expanded_.trustAgain();
    controlCheck_.verify([this](const std::string& message) { mustReveal.emit(message); });
    pinner_.pinLater();
}

void RestrictionHiding::reveal() {
    controlCheck_.abandon();
    forgetPassingThings();
    keeper_.wantNothing();
    if (!isLastScanOfWholeBar_ || uses_.inventory.isScanning().get())
        revealedScanTask_ = start(uses_.platform.scheduler, scanRevealed());
}

/// A scan of a hidden bar has missed what was hidden.
Task<> RestrictionHiding::scanRevealed() {
    constexpr Seconds returnTime{0.3}; // in which items come back to the bar
    if (co_await sleepFor(returnTime) == Wake::CutShort) co_return;
    co_await uses_.inventory.refreshItemsNow();
}

void RestrictionHiding::noteScan(const ScanResult& scan) {
    isLastScanOfWholeBar_ = !keeper_.isRestricted();
    ownItemCount_ = scan.ownItemCount;
    if (!scan.clockFrames.empty()) clock_.setClockRects(scan.clockFrames);
}

/// AppKit's word that the control isn't drawn is not enough where another process draws it: the agent has to
/// agree, unless it says nothing.
Task<bool> RestrictionHiding::isMissedByAgent() {
    co_await uses_.inventory.refreshItemsNow();
    co_return ownItemCount_.value_or(0) == 0;
}

void RestrictionHiding::adaptToScreens() {
    controlCheck_.verify([this](const std::string& message) { mustReveal.emit(message); });
}

void RestrictionHiding::screensChanged() {
    clock_.setClockRects({});
    expanded_.sync();
}

void RestrictionHiding::restrictForState() {
    isCollapsed() ? keeper_.wish(plans_.currentNativePlan()) : expanded_.sync();
}

void RestrictionHiding::applicationsLaunched() {
    letNewcomersIn();
    rescue_.applicationsLaunched();
}

/// An end takes nothing away from a list that still holds for the others.
void RestrictionHiding::applicationsEnded() {
    if (isCollapsed()) return;
    rescue_.applicationsEnded();
    expanded_.sync();
}

/// A list that was made before an application ran withholds its items. The answer to a hide in progress is
/// waited for first.
void RestrictionHiding::letNewcomersIn() {
    if (uses_.activity.isLiftedForClock.get() || confirmationsAwaited_ > 0) return;
    if (!isCollapsed() || keeper_.isRestricted()) restrictForState();
}

HiddenSet RestrictionHiding::setting(const std::string& itemIdentifier, bool hidden,
                                     const HiddenSet& set) const {
    return NativeVisibilityPolicy::setting(itemIdentifier, hidden, set);
}

bool RestrictionHiding::isHidden(const MenuBarItemSnapshot& item, const HiddenSet& set) const {
    return NativeVisibilityPolicy::isHidden(item.id, set);
}

bool RestrictionHiding::canHide(const MenuBarItemSnapshot& item) const {
    return item.isMovable && NativeVisibilityPolicy::canWithhold(item.id);
}

} // namespace tavrin
