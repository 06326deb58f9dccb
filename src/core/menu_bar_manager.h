#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/signal.h"
#include "core/announcements.h"
#include "core/bar_readings.h"
#include "core/configure_presentation.h"
#include "core/control_item_controller.h"
#include "core/first_run_hint.h"
#include "core/hiding_core.h"
#include "core/start_up.h"
#include "pins/running/pinned_actions_controller.h"
#include "platform/platform.h"
#include "shortcuts/carbon_hot_key_registrar.h"
#include "shortcuts/toggle_shortcut_controller.h"
#include "updates/app_updates.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrin {

/// The one controller of the program. It brings together the parts that hide items with the control and the
/// windows that the user sees, and starts all of them when it is made.
class MenuBarManager {
  public:
    struct Hooks {
        std::function<void()> showSettings;
        std::function<View(MenuBarManager&)> configureView;
    };

    /// All arguments outlive the manager.
    MenuBarManager(const Platform& platform, AccessibilityPermission& permission, AppUpdates& updates,
                   Hooks hooks);
    MenuBarManager(const MenuBarManager&) = delete;
    MenuBarManager& operator=(const MenuBarManager&) = delete;
    ~MenuBarManager();

    const BarReadings& state() const { return core_.readings; }

    MenuBarRuntimeMode runtimeMode() const { return core_.mode; }

    AccessibilityPermission& permission() { return permission_; }

    ToggleShortcutController& toggleShortcut() { return toggleShortcut_; }

    std::vector<MenuBarItem> visibleItems() const;
    std::vector<MenuBarItem> hiddenItems() const;
    bool isConfiguredHidden(const MenuBarItem& item) const;

    bool hasCompletedScan() const { return core_.inventory.hasCompletedScan(); }

    /// Changes what the user wants hidden, and stores it at once. Nothing moves yet.
    void setItems(const std::vector<std::string>& identifiers, bool hidden);

    void toggleCollapse() { core_.hiding.toggleCollapse(); }

    void showConfiguration() { configure_.showConfiguration(); }

    void refreshItems() { startUp_.refreshItems(); }

    /// Compares where the items are with where the user wants them.
    SkerrowPolicy collapsePolicy() const {
        return core_.hiddenItems.policyFor(core_.inventory.items().get());
    }

    /// Moves the items that are on the wrong side, and hides when all are in place.
    void applyConfigurationAndHide() { core_.applier.applyConfigurationAndHide(); }

    void cancelPendingConfiguration() { core_.applier.cancelPendingConfiguration(); }

    /// Shows the configure window's content anew, for a change that is the view's own.
    void configureViewChanged() { configure_.contentChanged(); }

    void openAccessibilitySettings();

    /// Undoes Tavrin's influence on the menu bar; the stored choice stays.
    Task<> prepareForTermination();

  private:
    std::vector<MenuBarItem> itemsConfigured(bool hidden) const;
    Subscription observeScreens();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    HidingCore core_;
    HotKeyRegistrars hotKeyRegistrars_;
    ToggleShortcutController toggleShortcut_;
    FirstRunHint hint_;
    ConfigurePresentation configure_;
    PinnedActionsController pinnedActions_;
    ControlItemController control_;
    StartUp startUp_;
    Announcements announcements_;
    Subscription screenObserver_;
};

} // namespace tavrin
