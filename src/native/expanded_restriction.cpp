#include "native/expanded_restriction.h"

#include <optional>
#include <string>

namespace tavrin {

ExpandedRestriction::ExpandedRestriction(Scheduler& scheduler, const BarActivity& activity,
                                         OwnStatusItems& items, const NativePlans& plans,
                                         const NativeExpandedRescueLatch& latch, RestrictionKeeper& keeper)
    : activity_(activity)
    , plans_(plans)
    , latch_(latch)
    , keeper_(keeper)
    , controlCheck_(scheduler, items)
    , keeperObservation_(keeper.changed.subscribe([this] { followKeeper(); })) {}

bool ExpandedRestriction::isLeftToOthers() const {
    return activity_.isCollapsed.get() || activity_.isCollapsePending.get();
}

bool ExpandedRestriction::isSuppressed() const {
    return activity_.isAwaitingInitialState.get() || activity_.isCollapsePending.get() ||
           activity_.isConfigureOpen.get() || activity_.isApplyingConfiguration.get() ||
           activity_.isLiftedForClock.get() || !activity_.isTrayVisible.get() || isAllowListUnsafe_;
}

void ExpandedRestriction::sync() {
    if (isLeftToOthers()) return;
    const auto plan = isSuppressed() ? std::nullopt : plans_.expandedNativePlan(latch_.identifiers);
    plan ? keeper_.wish(*plan) : keeper_.wantNothing();
}

void ExpandedRestriction::followKeeper() {
    if (isLeftToOthers() || !keeper_.isRestricted()) return controlCheck_.abandon();
    controlCheck_.verify([this](const std::string&) { giveUp(); });
}

void ExpandedRestriction::giveUp() {
    isAllowListUnsafe_ = true;
    sync();
}

} // namespace tavrin
