#include "core/configure_presentation.h"

#include "concurrency/waits.h"
#include "platform/application.h"

#include <utility>

namespace tavrin {

ConfigurePresentation::ConfigurePresentation(const Platform& platform, HidingCore& core, FirstRunHint& hint,
                                             std::function<View()> content)
    : platform_(platform)
    , core_(core)
    , hint_(hint)
    , content_(std::move(content))
    , observations_(core.readings.onAnyChange([this] { contentChanged(); })) {
    const auto& activity = core.activity;
    observations_.push_back(
        activity.isApplyingConfiguration.subscribe([this](const bool&) { adaptToApply(); }));
    observations_.push_back(activity.isCollapsed.subscribe([this](const bool& isCollapsed) {
        if (isCollapsed && isShown()) close();
    }));
    observations_.push_back(core.hiding.onFailed([this] { showConfiguration(ErrorMessage::Keep); }));
    observations_.push_back(hint.onClosedByControlPress([this] { showConfiguration(); }));
}

/// The drags of an apply are presses outside the window, which must not close it.
void ConfigurePresentation::adaptToApply() {
    if (!popover_) return;
    const bool isApplying = core_.activity.isApplyingConfiguration.get();
    popover_->setBehavior(isApplying ? PopoverBehavior::ApplicationDefined : PopoverBehavior::Transient);
}

void ConfigurePresentation::showConfiguration(ErrorMessage errorMessage) {
    hint_.dismiss();
    if (!core_.statusItems.controlFrame() || isShown()) return;
    core_.settings.setBoolean(Settings::didPresentInitialConfigurationKey, true);
    rememberCollapsedState();
    core_.applier.cancelPendingConfiguration();
    core_.hiding.cancelRequests();
    const auto request = configurationPresentation_.begin();
    core_.hiding.expand(Persist::No);
    if (errorMessage == ErrorMessage::Clear) core_.failure.clear();
    openingTask_ = start(platform_.scheduler, open(request));
}

/// An opening or a restore in progress has the bar expanded already; what it was to restore is still owed.
void ConfigurePresentation::rememberCollapsedState() {
    const bool isOwed = configurationPresentation_.isOpening() && restoreCollapsedStateAfterConfiguration_;
    const bool isRestoring = pendingPopoverRestoreTask_.isRunning();
    pendingPopoverRestoreTask_.cancel();
    restoreCollapsedStateAfterConfiguration_ = core_.activity.isCollapsed.get() || isOwed || isRestoring;
}

Task<> ConfigurePresentation::open(int request) {
    if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    if (configurationPresentation_.isLatest(request) && !core_.activity.isCollapsed.get() && !isShown())
        present();
    configurationPresentation_.finish(request);
}

void ConfigurePresentation::present() {
    const auto glyph = core_.statusItems.controlGlyphFrame();
    auto popover =
        platform_.presentation.makePopover(PopoverBehavior::Transient, [this] { popoverDidClose(); });
    popover->setContent(content_());
    // The transient popover of an inactive application closes at the next event, whatever that is.
    platform_.application.activate();
    if (glyph && popover->show(*core_.statusItems.control(), *glyph)) {
        popover_ = std::move(popover);
    } else {
        core_.failure.tell("The menu bar control moved while Configure was opening. Try again.");
    }
}

void ConfigurePresentation::close() {
    openingTask_.cancel();
    cancelPendingRestore();
    restoreCollapsedStateAfterConfiguration_ = false;
    popover_.reset();
}

void ConfigurePresentation::popoverDidClose() {
    popover_.reset();
    const bool isRestoreOwed = std::exchange(restoreCollapsedStateAfterConfiguration_, false);
    // An apply that goes on without its window hides at its own end.
    if (!isRestoreOwed || core_.activity.isApplyingConfiguration.get()) return;
    pendingPopoverRestoreTask_ = start(platform_.scheduler, restoreCollapsedState());
}

Task<> ConfigurePresentation::restoreCollapsedState() {
    if (co_await sleepFor(restoreWait) == Wake::CutShort) co_return;
    co_await core_.hiding.collapse(Persist::No);
}

void ConfigurePresentation::contentChanged() {
    if (isShown() && !renderTask_.isRunning()) renderTask_ = start(platform_.scheduler, render());
}

Task<> ConfigurePresentation::render() {
    if (isShown()) popover_->setContent(content_());
    co_return;
}

} // namespace tavrin
