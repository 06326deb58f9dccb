#include "app/settings_window.h"

#include "platform/application.h"
#include "platform/login_item.h"
#include "platform/workspace.h"
#include "shortcuts/toggle_shortcut_settings_view.h"

#include <utility>

namespace tavrin {

SettingsWindowController::SettingsWindowController(const Platform& platform,
                                                   AccessibilityPermission& permission, AppUpdates& updates,
                                                   ToggleShortcutController& toggleShortcut)
    : platform_(platform)
    , permission_(permission)
    , updates_(updates)
    , toggleShortcut_(toggleShortcut) {
    observations_.push_back(permission.onChanged([this](const bool&) { render(); }));
    observations_.push_back(updates.onChanged([this](const bool&) { render(); }));
    observations_.push_back(toggleShortcut.onChanged([this] { render(); }));
    observations_.push_back(platform.application.onDidBecomeActive([this] { refreshStartAtLogin(); }));
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    permission_.refresh();
    if (!window_) {
        startAtLogin_.emplace(platform_.loginItem);
        window_ = platform_.presentation.makeWindow("Tavrin Settings", [this] { window_.reset(); });
    }
    startAtLogin_->refresh();
    render();
    platform_.application.activate();
    window_->makeKeyAndOrderFront();
}

void SettingsWindowController::render() {
    if (window_) window_->setContent(content());
}

/// The user may have been to System Settings.
void SettingsWindowController::refreshStartAtLogin() {
    if (!window_) return;
    startAtLogin_->refresh();
    render();
}

StartAtLoginModel SettingsWindowController::startAtLoginModel() {
    return {.isOn = startAtLogin_->isOn(),
            .needsApproval = startAtLogin_->needsApproval(),
            .isOffered = startAtLogin_->isOffered(),
            .refusal = startAtLogin_->refusal(),
            .toggle =
                [this] {
                    startAtLogin_->toggle();
                    render();
                },
            .openLoginItems = [this] { platform_.loginItem.openSettings(); }};
}

View SettingsWindowController::content() {
    return settingsView(
        {.startAtLogin = startAtLoginModel(),
         .shortcut = toggleShortcutSettingsView(platform_, toggleShortcut_),
         .hasUpdater = updates_.isAvailable(),
         .updatesAutomatically = updates_.isAutomatic(),
         .isTrusted = permission_.isTrusted(),
         .version = platform_.application.displayVersion(),
         .actions = {.toggleAutomaticUpdates = [this] { updates_.setAutomatic(!updates_.isAutomatic()); },
                     .openAccessibilitySettings = [this] { permission_.openSettings(platform_.workspace); },
                     .close =
                         [this] {
                             if (window_) window_->close();
                         }}});
}

} // namespace tavrin
