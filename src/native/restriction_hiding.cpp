#include "native/restriction_hiding.h"

#include "native/native_visibility_policy.h"

#include <utility>

namespace tavrin {

RestrictionHiding::RestrictionHiding(const Uses& uses)
    : uses_(uses)
    , restriction_(uses.platform.scheduler, uses.platform.visibilityService)
    , keeper_(uses.platform.scheduler, restriction_)
    , plans_(uses.platform, uses.hiddenItems)
    , controlCheck_(uses.platform.scheduler, uses.items)
    , clock_(uses.platform, uses.activity, keeper_, [this] { restrictForState(); })
    , launches_(uses.platform.workspace, {.launched = [this] { applicationsLaunched(); },
                                          .ended = [] {},
                                          .menuBarRestarted = [this] { keeper_.renew(); }}) {}

std::optional<std::string> RestrictionHiding::refusal() const {
    if (restriction_.isAvailable()) return std::nullopt;
    return MenuBarVisibilityRestriction::Failure{}.description();
}

void RestrictionHiding::hideNow() { clock_.forget(); }

/// A plan that another one of ours has overtaken is as good: that one rests on the newer state.
Task<std::expected<void, std::string>> RestrictionHiding::confirmHidden() {
    ++confirmationsAwaited_;
    const auto outcome = co_await keeper_.want(plans_.currentNativePlan());
    --confirmationsAwaited_;
    if (co_await isCancelled()) co_return std::unexpected(std::string());
    if (!outcome) co_return std::unexpected(outcome.error());
    applicationsLaunched(); // those that have come meanwhile
    co_return std::expected<void, std::string>();
}

void RestrictionHiding::didHide() {
    controlCheck_.verify([this](const std::string& message) { mustReveal.emit(message); });
}

void RestrictionHiding::reveal() {
    controlCheck_.abandon();
    clock_.forget();
    keeper_.wantNothing();
}

void RestrictionHiding::adaptToScreens() {
    clock_.setClockRects({});
    didHide();
}

void RestrictionHiding::restrictForState() {
    if (uses_.activity.isCollapsed.get())
        keeper_.wish(plans_.currentNativePlan());
    else
        keeper_.wantNothing();
}

/// A list that was made before an application ran withholds its items. The answer to a hide in progress is
/// waited for first.
void RestrictionHiding::applicationsLaunched() {
    if (isLifted() || confirmationsAwaited_ > 0) return;
    if (uses_.activity.isCollapsed.get() && keeper_.isRestricted()) restrictForState();
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
