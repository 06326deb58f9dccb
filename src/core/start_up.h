#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "core/configure_presentation.h"
#include "core/first_run_hint.h"
#include "core/first_run_state.h"
#include "core/hiding_core.h"
#include "platform/platform.h"

namespace tavrin {

/// Brings the menu bar to its initial state: hidden, shown, or, on a fresh install, with everything hidden
/// that can be, as soon as a scan has told what there is and the menu bar is visible. Also scans when the
/// user or macOS asks for it, since that first scan may have to wait for permission, and again after one that
/// macOS has refused. Main thread.
class StartUp {
  public:
    StartUp(const Platform& platform, AccessibilityPermission& permission, HidingCore& core,
            FirstRunHint& hint, ConfigurePresentation& configure);
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;

    void begin();

    void refreshItems();

    void cancel();

  private:
    /// A trust flag that lags behind the messages has its new value by then, or is asked again.
    static constexpr Seconds refusedScanWait{1.0};

    Task<> perform();
    Task<> showInitialState();
    Task<> refreshAndFinishFirstRun();
    Task<> restoreCollapsedState();
    void applyFirstRunDefaultIfReady();
    void noteSight();
    bool hasUserConfigured() const;
    void noteScan(const ScanResult& scan);
    Task<> refreshLater();
    void hideWhatCanBeHidden();
    Task<> applyFirstRunDefault();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    HidingCore& core_;
    FirstRunHint& hint_;
    ConfigurePresentation& configure_;
    FirstRunState firstRun_;
    bool isAwaitingFirstRunDefault_ = false;
    Subscription permissionObservation_;
    Subscription sightObservation_;
    Subscription scanObservation_;
    Job<> startUpTask_;
    Job<> refreshTask_;
    Job<> firstRunTask_; // a refresh begins it, and later ones don't end it
    Job<> nextScanTask_;
};

} // namespace tavrin
