#pragma once

#include "accessibility/accessibility_onboarding.h"
#include "accessibility/accessibility_permission.h"
#include "app/settings_window.h"
#include "concurrency/job.h"
#include "core/menu_bar_manager.h"
#include "foreground/foreground_application.h"
#include "platform/application.h"
#include "platform/platform.h"
#include "updates/app_updates.h"

#include <memory>
#include <optional>

namespace tavrin {

/// Owns the long-lived objects and decides in which order they come up and go down.
class AppDelegate final : public ApplicationDelegate {
  public:
    explicit AppDelegate(const Platform& platform);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    ~AppDelegate() override;

    void applicationDidFinishLaunching() override;
    bool applicationShouldHandleReopen(bool hasVisibleWindows) override;

    bool applicationShouldTerminateAfterLastWindowClosed() override { return false; }

    void applicationShowSettings() override;
    TerminateReply applicationShouldTerminate() override;

  private:
    void presentOnboarding();
    void onboardingDidFinish();
    void startMenuBar();
    void showSettings();
    Task<> terminate();

    ForegroundApplication foreground_;
    const Platform platform_;
    AppUpdates updates_;
    std::unique_ptr<AccessibilityPermission> permission_;
    Subscription lateGrantObservation_;
    std::unique_ptr<AccessibilityOnboardingController> accessibilityOnboarding_;
    std::unique_ptr<MenuBarManager> menuBarManager_;
    std::unique_ptr<SettingsWindowController>
        settingsWindow_; // goes before the manager, whose shortcut it shows
    bool isPreparingForTermination_ = false;
    Job<> terminationTask_;
};

/// Makes the program, for an entry point. What `platform` refers to outlives it.
std::unique_ptr<ApplicationDelegate> makeAppDelegate(const Platform& platform);

} // namespace tavrin
