#include "core/configure_presentation.h"

#include "concurrency/waits.h"
#include "platform/application.h"

#include <utility>

namespace tavrin {

ConfigurePresentation::ConfigurePresentation(const Platform& platform, MenuBarState& state,
                                             Settings& settings, OwnStatusItems& items,
                                             HidingController& hiding,
                                             std::function<void()> cancelPendingConfiguration,
                                             std::function<View()> content)
    : platform_(platform)
    , state_(state)
    , settings_(settings)
    , items_(items)
    , hiding_(hiding)
    , cancelPendingConfiguration_(std::move(cancelPendingConfiguration))
    , content_(std::move(content))
    , observations_(state.onAnyChange([this] { contentChanged(); })) {
    observations_.push_back(state.isApplyingConfiguration.subscribe([this](const bool&) { adaptToApply(); }));
    observations_.push_back(state.isCollapsed.subscribe([this](const bool& isCollapsed) {
        if (isCollapsed && isShown()) close();
    }));
}

/// The drags of an apply are presses outside the window, which must not close it.
void ConfigurePresentation::adaptToApply() {
    if (!popover_) return;
    const bool isApplying = state_.isApplyingConfiguration.get();
    popover_->setBehavior(isApplying ? PopoverBehavior::ApplicationDefined : PopoverBehavior::Transient);
}

void ConfigurePresentation::showConfiguration(ErrorMessage errorMessage) {
    if (!items_.controlFrame() || isShown()) return;
    settings_.setBoolean(Settings::didPresentInitialConfigurationKey, true);
    rememberCollapsedState();
    cancelPendingConfiguration_();
    hiding_.cancelRequests();
    const auto request = configurationPresentation_.begin();
    hiding_.expand(Persist::No);
    if (errorMessage == ErrorMessage::Clear) state_.errorMessage.set(std::nullopt);
    openingTask_ = start(platform_.scheduler, open(request));
}

/// An opening or a restore in progress has the bar expanded already; what it was to restore is still owed.
void ConfigurePresentation::rememberCollapsedState() {
    const bool isOwed = configurationPresentation_.isOpening() && restoreCollapsedStateAfterConfiguration_;
    const bool isRestoring = pendingPopoverRestoreTask_.isRunning();
    pendingPopoverRestoreTask_.cancel();
    restoreCollapsedStateAfterConfiguration_ = state_.isCollapsed.get() || isOwed || isRestoring;
}

Task<> ConfigurePresentation::open(int request) {
    if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    if (configurationPresentation_.isLatest(request) && !state_.isCollapsed.get() && !isShown()) present();
    configurationPresentation_.finish(request);
}

void ConfigurePresentation::present() {
    const auto glyph = items_.controlGlyphFrame();
    auto popover =
        platform_.presentation.makePopover(PopoverBehavior::Transient, [this] { popoverDidClose(); });
    popover->setContent(content_());
    // The transient popover of an inactive application closes at the next event, whatever that is.
    platform_.application.activate();
    if (glyph && popover->show(*items_.control(), *glyph)) {
        popover_ = std::move(popover);
    } else {
        state_.errorMessage.set("The menu bar control moved while Configure was opening. Try again.");
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
    if (!isRestoreOwed || state_.isApplyingConfiguration.get()) return;
    pendingPopoverRestoreTask_ = start(platform_.scheduler, restoreCollapsedState());
}

Task<> ConfigurePresentation::restoreCollapsedState() {
    if (co_await sleepFor(restoreWait) == Wake::CutShort) co_return;
    hiding_.collapse(Persist::No);
}

void ConfigurePresentation::contentChanged() {
    if (isShown() && !renderTask_.isRunning()) renderTask_ = start(platform_.scheduler, render());
}

Task<> ConfigurePresentation::render() {
    if (isShown()) popover_->setContent(content_());
    co_return;
}

} // namespace tavrin
