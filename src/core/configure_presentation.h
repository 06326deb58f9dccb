#pragma once

#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "core/configure_surface.h"
#include "core/first_run_hint.h"
#include "core/hiding_core.h"
#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <vector>

namespace tavrin {

/// Opens and closes the configure window, a popover at the control, or a window below the menu bar where the
/// control can't be seen. It always shows the whole menu bar: it expands the bar when it opens and restores
/// the collapsed state when it closes. Main thread.
class ConfigurePresentation {
  public:
    enum class ErrorMessage { Clear, Keep };

    /// It also opens when hiding has failed, when an apply has ended incomplete, and when the hint was
    /// answered by a press on the control.
    ConfigurePresentation(const Platform& platform, HidingCore& core, FirstRunHint& hint,
                          std::function<View()> content);
    ConfigurePresentation(const ConfigurePresentation&) = delete;
    ConfigurePresentation& operator=(const ConfigurePresentation&) = delete;

    /// Takes the place of the hint, and brings a window that is open to the front.
    void showConfiguration(ErrorMessage errorMessage = ErrorMessage::Clear);

    /// The user has clicked the control: a state that is about to be restored is so no longer.
    void cancelPendingRestore();

    /// Whether the window is on the screen or on its way there.
    bool isOpen() const;

    /// Has the closing of the window hide what the start of the program would have hidden.
    void collapseOnClose() { isCollapseOwed_ = true; }

    void close();

    /// Shows the content anew; does nothing while the window is closed.
    void contentChanged();

  private:
    static constexpr Seconds settleWait{0.18}; // the status items find their places after an expand
    static constexpr Seconds restoreWait{0.08};
    static constexpr Seconds placementPollInterval{0.1};
    static constexpr Seconds placementWaitMax{6};
    static constexpr int looksForControlMax = 40; // longer than any repair takes

    bool isShown() const { return surface_.isShown(); }

    PopoverBehavior behavior() const;
    void rememberCollapsedState();
    Task<> open(bool hadControl);
    void present();
    bool presentAtControl();
    void presentInWindow();
    void barDidCollapse();
    void applyDidEnd(ApplyOutcome outcome);
    void surfaceDidClose(ConfigureSurface::Kind kind);
    Task<> comeBack();
    void noteClosed();
    void restoreIfOwed();
    Task<> restoreCollapsedState();
    Task<> render();

    const Platform& platform_;
    HidingCore& core_;
    FirstRunHint& hint_;
    std::function<View()> content_;
    bool isCollapseOwed_ = false; // when the window closes
    ConfigureSurface surface_;
    std::vector<Subscription> observations_;
    Job<> openingTask_; // the newest request cancels those before
    Job<> comingBackTask_;
    Job<> pendingPopoverRestoreTask_;
    Job<> renderTask_;
};

} // namespace tavrin
