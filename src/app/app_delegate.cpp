#include "app/app_delegate.h"

#include "app/configure_content.h"
#include "platform/defaults.h"

#include <utility>

namespace tavrin {

namespace {

Platform with(Application& application, const Platform& other) {
    return {other.scheduler,     application,        other.accessibility,     other.defaults,
            other.eventMonitors, other.events,       other.hotKeys,           other.keyboard,
            other.loginItem,     other.presentation, other.randomness,        other.screens,
            other.statusItems,   other.text,         other.visibilityService, other.windowServer,
            other.workspace,     other.updater};
}

} // namespace

AppDelegate::AppDelegate(const Platform& platform)
    : foreground_(platform.scheduler, platform.application, platform.workspace)
    , platform_(with(foreground_, platform))
    , updates_(platform.updater) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    platform_.application.setActivationPolicy(ActivationPolicy::Accessory);
    permission_ = std::make_unique<AccessibilityPermission>(platform_.scheduler, platform_.accessibility,
                                                            platform_.application);
    if (permission_->isTrusted()) {
        startMenuBar();
    } else {
        presentOnboarding();
    }
}

void AppDelegate::presentOnboarding() {
    accessibilityOnboarding_ = std::make_unique<AccessibilityOnboardingController>(platform_, *permission_);
    accessibilityOnboarding_->present([this] { onboardingDidFinish(); });
}

void AppDelegate::onboardingDidFinish() {
    accessibilityOnboarding_.reset();
    permission_->refresh();
    if (permission_->isTrusted()) return startMenuBar();
    // The user closed the window without granting access: nothing of Tavrin shows until access is there.
    lateGrantObservation_ = permission_->onChanged([this](const bool& isTrusted) {
        if (isTrusted && !accessibilityOnboarding_) startMenuBar();
    });
}

void AppDelegate::startMenuBar() {
    if (menuBarManager_) return;
    lateGrantObservation_.cancel();
    menuBarManager_ =
        std::make_unique<MenuBarManager>(platform_, *permission_, updates_,
                                         MenuBarManager::Hooks{.showSettings = [this] { showSettings(); },
                                                               .configureView = configureContent()});
}

void AppDelegate::showSettings() {
    if (!settingsWindow_)
        settingsWindow_ = std::make_unique<SettingsWindowController>(platform_, *permission_, updates_,
                                                                     menuBarManager_->toggleShortcut());
    settingsWindow_->show();
}

/// Before Tavrin may use Accessibility, the welcome comes first.
void AppDelegate::applicationShowSettings() {
    if (menuBarManager_) return showSettings();
    applicationShouldHandleReopen(true);
}

bool AppDelegate::applicationShouldHandleReopen(bool) {
    if (accessibilityOnboarding_) {
        accessibilityOnboarding_->bringToFront();
    } else if (menuBarManager_) {
        menuBarManager_->showConfiguration();
    } else if (permission_) {
        presentOnboarding();
    }
    return true;
}

TerminateReply AppDelegate::applicationShouldTerminate() {
    if (!menuBarManager_) return TerminateReply::Now;
    if (!std::exchange(isPreparingForTermination_, true))
        terminationTask_ = start(platform_.scheduler, terminate());
    return TerminateReply::Later;
}

Task<> AppDelegate::terminate() {
    co_await menuBarManager_->prepareForTermination();
    platform_.defaults.synchronize(platform_.defaults.ownDomain());
    platform_.application.replyToShouldTerminate(true);
}

std::unique_ptr<ApplicationDelegate> makeAppDelegate(const Platform& platform) {
    return std::make_unique<AppDelegate>(platform);
}

} // namespace tavrin
