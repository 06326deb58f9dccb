#include "core/start_up.h"

#include "concurrency/waits.h"
#include "platform/application.h"

#include <string>
#include <vector>

namespace tavrin {

namespace {

/// The status items need this long after their creation to find their places.
constexpr Seconds startUpWait{0.5};

} // namespace

StartUp::StartUp(const Platform& platform, AccessibilityPermission& permission, HidingCore& core,
                 FirstRunHint& hint, ConfigurePresentation& configure)
    : platform_(platform)
    , permission_(permission)
    , core_(core)
    , hint_(hint)
    , configure_(configure)
    , firstRun_(core.settings)
    , permissionObservation_(permission.onChanged([this](const bool& isTrusted) {
        if (isTrusted) refreshItems();
    }))
    , sightObservation_(core.statusItems.onSightChanged([this] { noteSight(); }))
    , scanObservation_(core.inventory.onScanCompleted([this](const ScanResult& scan) { noteScan(scan); })) {}

void StartUp::begin() { startUpTask_ = start(platform_.scheduler, perform()); }

void StartUp::refreshItems() { refreshTask_ = start(platform_.scheduler, refreshAndFinishFirstRun()); }

void StartUp::cancel() {
    startUpTask_.cancel();
    refreshTask_.cancel();
    firstRunTask_.cancel();
    nextScanTask_.cancel();
}

void StartUp::noteScan(const ScanResult& scan) {
    const bool isRefusedInSpiteOfTrust = scan.isDenied && permission_.isTrusted();
    if (isRefusedInSpiteOfTrust) nextScanTask_ = start(platform_.scheduler, refreshLater());
}

Task<> StartUp::refreshLater() {
    if (co_await sleepFor(refusedScanWait) == Wake::Due) refreshItems();
}

Task<> StartUp::perform() {
    if (co_await sleepFor(startUpWait) == Wake::CutShort) co_return;
    co_await core_.statusItems.waitForPlacement();
    co_await core_.mechanism->ensureLayout();
    co_await core_.inventory.refreshItemsNow();
    if (co_await isCancelled()) co_return;
    co_await showInitialState();
}

Task<> StartUp::showInitialState() {
    core_.activity.isAwaitingInitialState.set(false);
    if (firstRun_.isFreshInstall()) {
        isAwaitingFirstRunDefault_ = true;
        applyFirstRunDefaultIfReady();
    } else if (!core_.settings.boolean(Settings::didPresentInitialConfigurationKey)) {
        configure_.showConfiguration();
    } else if (core_.settings.boolean(Settings::shouldStartCollapsedKey)) {
        co_await restoreCollapsedState();
    }
}

/// The configure window shows the whole menu bar for as long as it is open.
Task<> StartUp::restoreCollapsedState() {
    if (configure_.isOpen()) co_return configure_.collapseOnClose();
    const auto outcome = co_await core_.hiding.collapse(Persist::No);
    if (outcome == CollapseOutcome::hidden) hint_.showIfPending();
    if (outcome == CollapseOutcome::failed)
        configure_.showConfiguration(ConfigurePresentation::ErrorMessage::Keep);
}

Task<> StartUp::refreshAndFinishFirstRun() {
    co_await core_.inventory.refreshItemsNow();
    if (!co_await isCancelled()) applyFirstRunDefaultIfReady();
}

void StartUp::applyFirstRunDefaultIfReady() {
    if (!isAwaitingFirstRunDefault_ || !core_.inventory.hasCompletedScan()) return;
    if (core_.mechanism->obstacleToPlacing()) return;
    isAwaitingFirstRunDefault_ = false;
    if (hasUserConfigured()) return;
    hideWhatCanBeHidden();
    firstRunTask_ = start(platform_.scheduler, applyFirstRunDefault());
}

/// What is owed to a user who couldn't see the control. On macOS 27 that is so for a moment after each hide,
/// until the bar has closed ranks.
void StartUp::noteSight() {
    applyFirstRunDefaultIfReady();
    const bool isSeen = core_.statusItems.controlSight() == ControlSight::drawn;
    if (isSeen && core_.activity.isCollapsed.get()) hint_.showIfPending();
}

bool StartUp::hasUserConfigured() const {
    return core_.settings.hasValue(Settings::hiddenItemIdentifiersKey) ||
           core_.activity.isApplyingConfiguration.get();
}

void StartUp::hideWhatCanBeHidden() {
    std::vector<std::string> identifiers;
    for (const auto& item :
         FirstRunState::itemsToHide(core_.inventory.items().get(), platform_.application.bundleIdentifier()))
        identifiers.push_back(item.snapshot.id);
    core_.setHidden(identifiers, true);
    firstRun_.recordDefaultLayout();
}

/// The configure window tells of an apply that could not place everything.
Task<> StartUp::applyFirstRunDefault() {
    if (co_await core_.applier.applyConfiguration() != ApplyOutcome::hidden) co_return;
    hint_.oweToUser();
    hint_.showIfPending();
}

} // namespace tavrin
