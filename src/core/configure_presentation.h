#pragma once

#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "core/first_run_hint.h"
#include "core/hiding_core.h"
#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>
#include <vector>

namespace tavrin {

/// Numbers the requests to open the configure window, so that only the newest may open it.
class ConfigurationPresentationTracker {
  public:
    int begin() {
        isOpening_ = true;
        return ++latestRequest_;
    }

    bool isLatest(int request) const { return latestRequest_ == request; }

    bool isOpening() const { return isOpening_; }

    void finish(int request) {
        if (isLatest(request)) isOpening_ = false;
    }

  private:
    int latestRequest_ = 0;
    bool isOpening_ = false;
};

/// Opens and closes the configure window, a popover at the control. The window always shows the whole menu
/// bar: it expands the bar when it opens and restores the collapsed state when it closes. Main thread.
class ConfigurePresentation {
  public:
    enum class ErrorMessage { Clear, Keep };

    /// It also opens when hiding has failed, and when the hint was answered by a press on the control.
    ConfigurePresentation(const Platform& platform, HidingCore& core, FirstRunHint& hint,
                          std::function<View()> content);
    ConfigurePresentation(const ConfigurePresentation&) = delete;
    ConfigurePresentation& operator=(const ConfigurePresentation&) = delete;

    /// Takes the place of the hint.
    void showConfiguration(ErrorMessage errorMessage = ErrorMessage::Clear);

    /// The user has clicked the control: the state that the window found is no longer restored.
    void cancelPendingRestore() { pendingPopoverRestoreTask_.cancel(); }

    void close();

    /// Shows the content anew; does nothing while the window is closed.
    void contentChanged();

  private:
    static constexpr Seconds settleWait{0.18}; // the status items find their places after an expand
    static constexpr Seconds restoreWait{0.08};

    bool isShown() const { return popover_ && popover_->isShown(); }

    void rememberCollapsedState();
    Task<> open(int request);
    void present();
    void adaptToApply();
    void popoverDidClose();
    Task<> restoreCollapsedState();
    Task<> render();

    const Platform& platform_;
    HidingCore& core_;
    FirstRunHint& hint_;
    std::function<View()> content_;
    ConfigurationPresentationTracker configurationPresentation_;
    bool restoreCollapsedStateAfterConfiguration_ = false;
    std::unique_ptr<Popover> popover_;
    std::vector<Subscription> observations_;
    Job<> openingTask_;
    Job<> pendingPopoverRestoreTask_;
    Job<> renderTask_;
};

} // namespace tavrin
