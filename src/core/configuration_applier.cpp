#include "core/configuration_applier.h"

#include "concurrency/waits.h"

#include <utility>

namespace tavrin {

namespace {

/// Publishes that an apply is running, and takes that back however the apply ends.
class ApplyingSign {
  public:
    explicit ApplyingSign(BarActivity& activity) : activity_(activity) {
        activity_.isApplyingConfiguration.set(true);
    }

    ApplyingSign(const ApplyingSign&) = delete;
    ApplyingSign& operator=(const ApplyingSign&) = delete;

    ~ApplyingSign() { activity_.isApplyingConfiguration.set(false); }

  private:
    BarActivity& activity_;
};

} // namespace

ConfigurationApplier::ConfigurationApplier(const Uses& uses)
    : uses_(uses)
    , requestObservation_(uses.hiding.onRequest([this] { cancelPendingConfiguration(); })) {}

void ConfigurationApplier::applyConfigurationAndHide() {
    uses_.permission.refresh();
    if (!uses_.permission.isTrusted())
        return uses_.failure.tell("Grant Accessibility access before applying this configuration.");
    pendingConfigurationTask_ = start(uses_.scheduler, perform(PressDuringDrag::StopsAll));
}

Task<std::optional<ApplyOutcome>> ConfigurationApplier::applyConfiguration() {
    pendingConfigurationTask_ = start(uses_.scheduler, perform(PressDuringDrag::SpoilsTry));
    co_return co_await pendingConfigurationTask_.result();
}

/// The job of a cancelled apply has no result, whatever comes back here. One that the user has stopped has
/// left the bar expanded.
Task<ApplyOutcome> ConfigurationApplier::perform(PressDuringDrag press) {
    const auto outcome = co_await performUntilStopped(press);
    if (!outcome) co_return ApplyOutcome::incomplete;
    ended_.emit(*outcome);
    co_return *outcome;
}

Task<std::optional<ApplyOutcome>> ConfigurationApplier::performUntilStopped(PressDuringDrag press) {
    uses_.failure.clear();
    if (isObstructed()) co_return ApplyOutcome::incomplete;
    std::optional<ApplyingSign> sign(uses_.activity);
    co_await prepare();
    if (co_await isCancelled()) co_return std::nullopt;
    if (isObstructed()) co_return ApplyOutcome::incomplete;
    Failures failures;
    // After a scan that was denied nothing is known of where items are; the collapse says so.
    const bool canPlace = uses_.mechanism.placesByPosition() && uses_.inventory.hasCompletedScan();
    if (canPlace) {
        auto remaining = co_await uses_.placer.placeAll(press);
        if (!remaining) co_return std::nullopt;
        failures = *std::move(remaining);
    }
    if (co_await isCancelled()) co_return std::nullopt;
    sign.reset();
    co_return co_await finish(std::move(failures));
}

/// Whether something has to move and nothing can; the user is told why. Asked before anything is changed, and
/// of the fresh scan.
bool ConfigurationApplier::isObstructed() {
    if (!uses_.placer.hasWork()) return false;
    const auto obstacle = uses_.mechanism.obstacleToPlacing();
    if (obstacle) uses_.failure.tell(*obstacle);
    return obstacle.has_value();
}

Task<> ConfigurationApplier::prepare() {
    if (uses_.activity.isCollapsed.get()) uses_.hiding.expand(Persist::No);
    const bool isArranged = co_await uses_.mechanism.arrangeForApply();
    if (isArranged && co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    co_await uses_.inventory.refreshItemsNow();
}

Task<ApplyOutcome> ConfigurationApplier::finish(Failures failures) {
    if (!failures.empty()) {
        uses_.failure.tell(failureSummary(failures));
        co_return ApplyOutcome::incomplete;
    }
    switch (co_await uses_.hiding.collapse(Persist::Yes)) {
    case CollapseOutcome::hidden:
        co_return ApplyOutcome::hidden;
    case CollapseOutcome::failed:
        co_return ApplyOutcome::incomplete;
    case CollapseOutcome::superseded:
        break;
    }
    co_return ApplyOutcome::superseded;
}

} // namespace tavrin
