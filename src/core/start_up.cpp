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
    , core_(core)
    , hint_(hint)
    , configure_(configure)
    , firstRun_(core.settings)
    , permissionObservation_(permission.onChanged([this](const bool& isTrusted) {
        if (isTrusted) refreshItems();
    })) {}

void StartUp::begin() { startUpTask_ = start(platform_.scheduler, perform()); }

void StartUp::refreshItems() { refreshTask_ = start(platform_.scheduler, refreshAndFinishFirstRun()); }

void StartUp::cancel() {
    startUpTask_.cancel();
    refreshTask_.cancel();
}

Task<> StartUp::perform() {
    if (co_await sleepFor(startUpWait) == Wake::CutShort) co_return;
    co_await core_.mechanism->ensureLayout();
    co_await core_.inventory.refreshItemsNow();
    if (co_await isCancelled()) co_return;
    co_await showInitialState();
}

Task<> StartUp::showInitialState() {
    if (firstRun_.isFreshInstall()) {
        isAwaitingFirstRunDefault_ = true;
        co_await applyFirstRunDefaultIfReady();
    } else if (!core_.settings.boolean(Settings::didPresentInitialConfigurationKey)) {
        configure_.showConfiguration();
    } else if (core_.settings.boolean(Settings::shouldStartCollapsedKey)) {
        const auto outcome = co_await core_.hiding.collapse(Persist::No);
        if (outcome == CollapseOutcome::hidden) hint_.showIfPending();
    }
}

Task<> StartUp::refreshAndFinishFirstRun() {
    co_await core_.inventory.refreshItemsNow();
    if (!co_await isCancelled()) co_await applyFirstRunDefaultIfReady();
}

Task<> StartUp::applyFirstRunDefaultIfReady() {
    if (!isAwaitingFirstRunDefault_ || !core_.inventory.hasCompletedScan()) co_return;
    isAwaitingFirstRunDefault_ = false;
    hideWhatCanBeHidden();
    tellOf(co_await core_.applier.applyConfiguration());
}

void StartUp::hideWhatCanBeHidden() {
    std::vector<std::string> identifiers;
    for (const auto& item :
         FirstRunState::itemsToHide(core_.inventory.items().get(), platform_.application.bundleIdentifier()))
        identifiers.push_back(item.snapshot.id);
    core_.hiddenItems.set(identifiers, true);
    firstRun_.recordDefaultLayout();
}

void StartUp::tellOf(std::optional<ApplyOutcome> outcome) {
    if (outcome == ApplyOutcome::hidden) {
        hint_.oweToUser();
        hint_.showIfPending();
    } else if (outcome == ApplyOutcome::incomplete) {
        configure_.showConfiguration(ConfigurePresentation::ErrorMessage::Keep);
    }
}

} // namespace tavrin
