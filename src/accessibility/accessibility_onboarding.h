#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>

namespace tavrin {

struct AccessibilityOnboardingModel {
    enum class Phase { waiting, granted };

    Published<Phase> phase{Phase::waiting};
};

/// The content of the onboarding window.
View accessibilityOnboardingView(AccessibilityOnboardingModel::Phase phase,
                                 std::function<void()> openSettings);

/// Leads the user to the Accessibility switch and says good-bye when it is on.
class AccessibilityOnboardingController {
  public:
    /// How long the window stays after access was granted.
    static constexpr Seconds farewell{1.6};

    AccessibilityOnboardingController(const Platform& platform, AccessibilityPermission& permission);
    AccessibilityOnboardingController(const AccessibilityOnboardingController&) = delete;
    AccessibilityOnboardingController& operator=(const AccessibilityOnboardingController&) = delete;
    ~AccessibilityOnboardingController();

    /// Shows the window. `onFinish` is called once, after the farewell or when the user closes the window; it
    /// may destroy this controller.
    void present(std::function<void()> onFinish);

    void bringToFront();

  private:
    void render();
    void showGranted();
    Task<> sayFarewell();
    void finish();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    AccessibilityOnboardingModel model_;
    std::function<void()> onFinish_;
    std::unique_ptr<Window> window_;
    Subscription trustObservation_;
    Subscription phaseObservation_;
    Job<> farewellTask_;
};

} // namespace tavrin
