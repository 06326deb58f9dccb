#include "app/settings_window.h"

#include "platform/application.h"
#include "platform/workspace.h"
#include "shortcuts/toggle_shortcut_settings_view.h"
#include "ui/settings_view.h"

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
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    permission_.refresh();
    if (!window_) window_ = platform_.presentation.makeWindow("Tavrin Settings", [this] { window_.reset(); });
    render();
    platform_.application.activate();
    window_->makeKeyAndOrderFront();
}

void SettingsWindowController::render() {
    if (window_) window_->setContent(content());
}

View SettingsWindowController::content() {
    return settingsView(
        {.shortcut = toggleShortcutSettingsView(platform_, toggleShortcut_),
         .hasUpdater = updates_.isAvailable(),
         .updatesAutomatically = updates_.isAutomatic(),
         .isTrusted = permission_.isTrusted(),
         .version = platform_.application.displayVersion(),
         .actions = {.toggleAutomaticUpdates = [this] { updates_.setAutomatic(!updates_.isAutomatic()); },
                     .openAccessibilitySettings =
                         [this] { platform_.workspace.openUrl(AccessibilityPermission::settingsURL); },
                     .close =
                         [this] {
                             if (window_) window_->close();
                         }}});
}

} // namespace tavrin
