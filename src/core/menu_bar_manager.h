#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "core/configuration_applier.h"
#include "core/configure_presentation.h"
#include "core/control_item_controller.h"
#include "core/first_run_hint.h"
#include "core/first_run_state.h"
#include "discovery/menu_bar_item_reader.h"
#include "gestures/window_server_status_item_bridge.h"
#include "hiding/hiding_controller.h"
#include "hiding/item_inventory.h"
#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/menu_bar_state.h"
#include "hiding/own_status_items.h"
#include "hiding/status_item_geometry_keeper.h"
#include "movement/menu_bar_item_mover.h"
#include "pins/running/pinned_actions_controller.h"
#include "platform/platform.h"
#include "settings/settings.h"
#include "shortcuts/carbon_hot_key_registrar.h"
#include "shortcuts/toggle_shortcut_controller.h"
#include "updates/app_updates.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavrin {

/// The one controller of the program: it owns the published state and wires the collaborators that hide,
/// reveal, scan and show. It starts all of them when it is made. Main thread.
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

    const MenuBarState& state() const { return state_; }

    MenuBarRuntimeMode runtimeMode() const { return runtimeMode_; }

    AccessibilityPermission& permission() { return permission_; }

    ToggleShortcutController& toggleShortcut() { return toggleShortcut_; }

    std::vector<MenuBarItem> visibleItems() const;
    std::vector<MenuBarItem> hiddenItems() const;
    bool isConfiguredHidden(const MenuBarItem& item) const;

    /// Change what the user wants hidden, and store it at once. Nothing moves yet.
    void setItem(const MenuBarItem& item, bool hidden);
    void setItems(const std::vector<std::string>& identifiers, bool hidden);

    void toggleCollapse() { hiding_.toggleCollapse(); }

    void showConfiguration() { presentConfiguration(ConfigurePresentation::ErrorMessage::Clear); }

    void refreshItems();

    /// Where the items are, compared with where the user wants them.
    SkerrowPolicy collapsePolicy() const { return hiding_.collapsePolicy(); }

    /// Moves what is on the wrong side, and hides when all is in place.
    void applyConfigurationAndHide() { applier_.applyConfigurationAndHide(); }

    void cancelPendingConfiguration() { applier_.cancelPendingConfiguration(); }

    /// Shows the configure window's content anew, for a change that is the view's own.
    void configureViewChanged() { configure_.contentChanged(); }

    void openAccessibilitySettings();

    /// Undoes Tavrin's influence on the menu bar; the stored choice stays.
    Task<> prepareForTermination();

  private:
    std::vector<MenuBarItem> itemsConfigured(bool hidden) const;
    void presentConfiguration(ConfigurePresentation::ErrorMessage errorMessage);
    void loadHiddenItems();
    void observeDisplayChanges();
    void observeAccessibilityPermission();
    Task<> startUp();
    Task<> refreshAndFinishFirstRun();
    Task<> showInitialState();
    Task<> applyFirstRunDefaultIfReady();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    MenuBarRuntimeMode runtimeMode_;
    MenuBarState state_;
    Settings settings_;
    FirstRunState firstRun_;
    HotKeyRegistrars hotKeyRegistrars_;
    ToggleShortcutController toggleShortcut_;
    bool isAwaitingFirstRunDefault_ = false;
    OwnStatusItems statusItems_;
    StatusItemGeometryKeeper geometry_;
    ItemInventory inventory_;
    std::unique_ptr<SerialQueue> readingQueue_;
    MenuBarItemReader itemReader_;
    WindowServerStatusItemBridge windowBridge_;
    MenuBarItemMover mover_;
    HidingController hiding_;
    ConfigurationApplier applier_;
    ConfigurePresentation configure_;
    FirstRunHint hint_;
    PinnedActionsController pinnedActions_;
    ControlItemController control_;
    Subscription screenObserver_;
    Subscription accessibilityObservation_;
    Job<> startUpTask_;
    Job<> refreshTask_;
};

} // namespace tavrin
