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
    observations_.push_back(activity.isApplyingConfiguration.subscribe([this](const bool&) {
        if (popover_) popover_->setBehavior(behavior());
    }));
    observations_.push_back(activity.isCollapsed.subscribe([this](const bool& isCollapsed) {
        if (isCollapsed) barDidCollapse();
    }));
    observations_.push_back(
        core.applier.onEnded([this](const ApplyOutcome& outcome) { applyDidEnd(outcome); }));
    observations_.push_back(core.hiding.onFailed([this] { showConfiguration(ErrorMessage::Keep); }));
    observations_.push_back(hint.onClosedByControlPress([this] { showConfiguration(); }));
}

bool ConfigurePresentation::isOpen() const {
    return isShown() || openingTask_.isRunning() || comingBackTask_.isRunning();
}

/// The drags of an apply are presses outside the window, which must not close it.
PopoverBehavior ConfigurePresentation::behavior() const {
    return core_.activity.isApplyingConfiguration.get() ? PopoverBehavior::ApplicationDefined
                                                        : PopoverBehavior::Transient;
}

void ConfigurePresentation::showConfiguration(ErrorMessage errorMessage) {
    hint_.dismiss();
    if (!core_.statusItems.controlFrame() || isShown()) return;
    core_.settings.setBoolean(Settings::didPresentInitialConfigurationKey, true);
    rememberCollapsedState();
    comingBackTask_.cancel();
    core_.applier.cancelPendingConfiguration();
    core_.hiding.cancelRequests();
    core_.hiding.expand(Persist::No);
    if (errorMessage == ErrorMessage::Clear) core_.failure.clear();
    openingTask_ = start(platform_.scheduler, open());
}

/// An opening or a restore in progress has the bar expanded already; what it was to restore is still owed.
void ConfigurePresentation::rememberCollapsedState() {
    pendingPopoverRestoreTask_.cancel();
    if (core_.activity.isCollapsed.get()) isCollapseOwed_ = true;
}

Task<> ConfigurePresentation::open() {
    if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    if (!core_.activity.isCollapsed.get() && !isShown()) present();
}

void ConfigurePresentation::present() {
    const auto glyph = core_.statusItems.controlGlyphFrame();
    auto popover = platform_.presentation.makePopover(behavior(), [this] { popoverDidClose(); });
    popover->setContent(content_());
    // The transient popover of an inactive application closes at the next event, whatever that is.
    platform_.application.activate();
    if (glyph && popover->show(*core_.statusItems.control(), *glyph)) {
        popover_ = std::move(popover);
    } else {
        isCollapseOwed_ = false;
        core_.failure.tell("The menu bar control moved while Configure was opening. Try again.");
    }
}

void ConfigurePresentation::barDidCollapse() {
    if (isOpen()) close();
    isCollapseOwed_ = false;
}

void ConfigurePresentation::applyDidEnd(ApplyOutcome outcome) {
    if (outcome == ApplyOutcome::incomplete) showConfiguration(ErrorMessage::Keep);
}

void ConfigurePresentation::close() {
    openingTask_.cancel();
    comingBackTask_.cancel();
    pendingPopoverRestoreTask_.cancel();
    isCollapseOwed_ = false;
    popover_.reset();
}

void ConfigurePresentation::popoverDidClose() {
    popover_.reset();
    // Nobody closes the window of an apply: its control has gone from under it.
    if (!core_.activity.isApplyingConfiguration.get()) return restoreIfOwed();
    comingBackTask_ = start(platform_.scheduler, comeBack());
}

/// A repair makes a new control, and displays that have gone for a moment bring the old one back.
Task<> ConfigurePresentation::comeBack() {
    for (int look = 0; look < looksForControlMax && !isShown(); ++look) {
        if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
        if (core_.statusItems.validControlGlyphFrame()) present();
    }
    if (!isShown() && !core_.activity.isApplyingConfiguration.get()) restoreIfOwed();
}

void ConfigurePresentation::restoreIfOwed() {
    if (isCollapseOwed_) pendingPopoverRestoreTask_ = start(platform_.scheduler, restoreCollapsedState());
}

void ConfigurePresentation::cancelPendingRestore() {
    if (!pendingPopoverRestoreTask_.isRunning() && !comingBackTask_.isRunning()) return;
    pendingPopoverRestoreTask_.cancel();
    comingBackTask_.cancel();
    isCollapseOwed_ = false;
}

Task<> ConfigurePresentation::restoreCollapsedState() {
    if (co_await sleepFor(restoreWait) == Wake::CutShort) co_return;
    if (!std::exchange(isCollapseOwed_, false)) co_return; // refused, it isn't tried again
    const auto outcome = co_await core_.hiding.collapse(Persist::No);
    if (outcome == CollapseOutcome::failed) showConfiguration(ErrorMessage::Keep);
}

void ConfigurePresentation::contentChanged() {
    if (isShown() && !renderTask_.isRunning()) renderTask_ = start(platform_.scheduler, render());
}

Task<> ConfigurePresentation::render() {
    if (isShown()) popover_->setContent(content_());
    co_return;
}

} // namespace tavrin
