#include "accessibility/accessibility_onboarding.h"

#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <string>
#include <utility>

namespace tavrin {

AccessibilityOnboardingController::AccessibilityOnboardingController(const Platform& platform,
                                                                     AccessibilityPermission& permission)
    : platform_(platform)
    , permission_(permission) {}

AccessibilityOnboardingController::~AccessibilityOnboardingController() = default;

void AccessibilityOnboardingController::present(std::function<void()> onFinish) {
    onFinish_ = std::move(onFinish);
    window_ = platform_.presentation.makeWindow("Welcome to Tavrin", [this] { finish(); });
    phaseObservation_ = model_.phase.subscribe([this](const auto&) { render(); });
    trustObservation_ = permission_.onChanged([this](const bool& isTrusted) {
        if (isTrusted) showGranted();
    });
    render();
    bringToFront();
}

void AccessibilityOnboardingController::bringToFront() {
    platform_.application.activate();
    if (window_) window_->makeKeyAndOrderFront();
}

void AccessibilityOnboardingController::render() {
    window_->setContent(accessibilityOnboardingView(
        model_.phase.get(), [this] { permission_.openSettings(platform_.workspace); }));
}

void AccessibilityOnboardingController::showGranted() {
    model_.phase.set(AccessibilityOnboardingModel::Phase::granted);
    farewellTask_ = start(platform_.scheduler, sayFarewell());
}

Task<> AccessibilityOnboardingController::sayFarewell() {
    if (co_await sleepFor(farewell) == Wake::CutShort) co_return;
    window_->close();
    finish();
}

void AccessibilityOnboardingController::finish() {
    if (const auto onFinish = std::exchange(onFinish_, nullptr)) onFinish();
}

} // namespace tavrin
