#include "core/configure_presentation.h"

#include "concurrency/wait_until.h"
#include "concurrency/waits.h"

#include <utility>

namespace tavrin {

ConfigurePresentation::ConfigurePresentation(const Platform& platform, HidingCore& core, FirstRunHint& hint,
                                             std::function<View()> content)
    : platform_(platform)
    , core_(core)
    , hint_(hint)
    , content_(std::move(content))
    , surface_(platform, [this](auto kind) { surfaceDidClose(kind); })
    , observations_(core.readings.onAnyChange([this] { contentChanged(); })) {
    const auto& activity = core.activity;
    observations_.push_back(activity.isApplyingConfiguration.subscribe(
        [this](const bool&) { surface_.setBehavior(behavior()); }));
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
    if (isShown()) return surface_.bringToFront();
    if (!core_.statusItems.control()) return;
    core_.settings.setBoolean(Settings::didPresentInitialConfigurationKey, true);
    rememberCollapsedState();
    comingBackTask_.cancel();
    core_.applier.cancelPendingConfiguration();
    core_.hiding.cancelRequests();
    core_.activity.isConfigureOpen.set(true);
    core_.hiding.expand(Persist::No);
    if (errorMessage == ErrorMessage::Clear) core_.failure.clear();
    openingTask_ = start(platform_.scheduler, open(core_.statusItems.controlFrame().has_value()));
}

/// An opening or a restore in progress has the bar expanded already; what it was to restore is still owed.
void ConfigurePresentation::rememberCollapsedState() {
    pendingPopoverRestoreTask_.cancel();
    if (core_.activity.isCollapsed.get()) isCollapseOwed_ = true;
}

Task<> ConfigurePresentation::open(bool hadControl) {
    if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    const auto isSettled = [this] { return !core_.statusItems.isAwaitingPlacement(); };
    (void)co_await waitUntil(platform_.scheduler, isSettled, placementPollInterval, placementWaitMax);
    if (co_await isCancelled() || isShown()) co_return;
    if (core_.activity.isCollapsed.get()) co_return noteClosed();
    if (hadControl && !core_.statusItems.controlFrame())
        core_.failure.tell("The menu bar control moved while Configure was opening. Try again.");
    present();
}

void ConfigurePresentation::present() {
    if (!presentAtControl()) presentInWindow();
}

bool ConfigurePresentation::presentAtControl() {
    const auto glyph = core_.statusItems.controlGlyphFrame();
    return glyph && !core_.statusItems.isKeptOutOfMenuBar() &&
           surface_.showPopover(*core_.statusItems.control(), *glyph, behavior(), content_());
}

/// The window says why it is none at the control, unless something worse is to be told.
void ConfigurePresentation::presentInWindow() {
    if (!core_.failure.published().get()) core_.failure.tell(core_.statusItems.whyControlIsUnseen());
    surface_.showWindow(content_());
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
    surface_.close();
    noteClosed();
}

void ConfigurePresentation::noteClosed() { core_.activity.isConfigureOpen.set(false); }

void ConfigurePresentation::surfaceDidClose(ConfigureSurface::Kind kind) {
    if (!core_.activity.isApplyingConfiguration.get()) return restoreIfOwed();
    // Nobody closes the popover of an apply: its control has gone from under it.
    if (kind != ConfigureSurface::Kind::Popover) return noteClosed();
    comingBackTask_ = start(platform_.scheduler, comeBack());
}

/// A repair makes a new control, and displays that have gone for a moment bring the old one back.
Task<> ConfigurePresentation::comeBack() {
    for (int look = 0; look < looksForControlMax && !isShown(); ++look) {
        if (co_await sleepFor(settleWait) == Wake::CutShort) co_return;
        if (core_.statusItems.validControlGlyphFrame()) present();
    }
    if (isShown()) co_return;
    core_.activity.isApplyingConfiguration.get() ? presentInWindow() : restoreIfOwed();
}

void ConfigurePresentation::restoreIfOwed() {
    noteClosed();
    if (isCollapseOwed_) pendingPopoverRestoreTask_ = start(platform_.scheduler, restoreCollapsedState());
}

void ConfigurePresentation::cancelPendingRestore() {
    if (!pendingPopoverRestoreTask_.isRunning() && !comingBackTask_.isRunning()) return;
    pendingPopoverRestoreTask_.cancel();
    comingBackTask_.cancel();
    isCollapseOwed_ = false;
    noteClosed();
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
    if (isShown()) surface_.setContent(content_());
    co_return;
}

} // namespace tavrin
