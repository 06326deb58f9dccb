#pragma once

#include "accessibility/accessibility_permission.h"
#include "app/start_at_login.h"
#include "concurrency/signal.h"
#include "platform/platform.h"
#include "platform/presentation.h"
#include "shortcuts/toggle_shortcut_controller.h"
#include "ui/settings_view.h"
#include "updates/app_updates.h"

#include <memory>
#include <optional>
#include <vector>

namespace tavrin {

/// The settings window. Escape and Command-W close it.
class SettingsWindowController {
  public:
    SettingsWindowController(const Platform& platform, AccessibilityPermission& permission,
                             AppUpdates& updates, ToggleShortcutController& toggleShortcut);
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;
    ~SettingsWindowController();

    void show();

  private:
    void render();
    void refreshStartAtLogin();
    View content();
    StartAtLoginModel startAtLoginModel();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    AppUpdates& updates_;
    ToggleShortcutController& toggleShortcut_;
    std::optional<StartAtLogin> startAtLogin_; // since the window last came up
    std::unique_ptr<Window> window_;
    std::vector<Subscription> observations_;
};

} // namespace tavrin
