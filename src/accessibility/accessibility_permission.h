#pragma once

#include "concurrency/job.h"
#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <functional>
#include <string_view>
#include <vector>

namespace tavrin {

/// Tells whether the user lets this process use Accessibility. While the process isn't trusted, this looks
/// once a second and at every hint of a change. While it is trusted, this neither looks nor listens, so a
/// caller that depends on the answer calls `refresh` first.
class AccessibilityPermission {
  public:
    static constexpr Seconds pollInterval{1.0};
    static constexpr Seconds listChangeRecheckDelay{0.5};

    /// The pane of System Settings with the list of trusted applications.
    static constexpr std::string_view settingsURL =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

    AccessibilityPermission(Scheduler& scheduler, Accessibility& accessibility, Application& application);
    AccessibilityPermission(const AccessibilityPermission&) = delete;
    AccessibilityPermission& operator=(const AccessibilityPermission&) = delete;
    ~AccessibilityPermission();

    bool isTrusted() const { return isTrusted_.get(); }

    Subscription onChanged(std::function<void(const bool&)> handler) {
        return isTrusted_.subscribe(std::move(handler));
    }

    /// Asks the system again and publishes a change.
    void refresh();

    /// Shows the user the switch. The first time in a life of the process it also asks macOS for the switch,
    /// which isn't there before, and which macOS announces in a dialog.
    void openSettings(Workspace& workspace);

  private:
    void startMonitoring();
    void stopMonitoring();
    void scheduleRecheck();
    Task<> recheck();

    Scheduler& scheduler_;
    Accessibility& accessibility_;
    Application& application_;
    Published<bool> isTrusted_;
    TimerIdentifier pollTimer_ = TimerIdentifier::None;
    std::vector<Subscription> observers_;
    Job<> pendingRecheck_;
    bool hasRequestedTrust_ = false;
};

} // namespace tavrin
