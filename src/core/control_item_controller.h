#pragma once

#include "concurrency/signal.h"
#include "core/control_menu_plan.h"
#include "core/first_run_hint.h"
#include "hiding/bar_activity.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"
#include "platform/presentation.h"
#include "updates/app_updates.h"

#include <functional>

namespace tavrin {

/// The control item: its look, its clicks and its menu.
class ControlItemController {
  public:
    /// The actions that the control can ask for.
    struct Actions {
        std::function<bool()> takesPress; // one that isn't the user's
        std::function<void()> toggleCollapse;
        std::function<void()> showConfiguration;
        std::function<void()> cancelConfigurationRestore;
        std::function<void()> cancelPendingConfiguration;
        std::function<void()> refreshItems;
        std::function<void()> showSettings;
        std::function<void(Menu&)> appendPinnedActions;
    };

    ControlItemController(const Platform& platform, const BarActivity& activity, OwnStatusItems& items,
                          FirstRunHint& hint, AppUpdates& updates, Actions actions);

    /// Gives a newly made control item its look and its action.
    void dress(StatusItem& control);

  private:
    void updateControlIcon(StatusItem& control);
    void handleControlClick(StatusItemPress press);
    void showContextMenu();
    Menu buildMenu();
    MenuItem menuItem(ControlMenuEntry entry);
    MenuItem command(std::string title, std::function<void()> action, std::string keyEquivalent = "") const;

    const Platform& platform_;
    const BarActivity& activity_;
    OwnStatusItems& items_;
    FirstRunHint& hint_;
    AppUpdates& updates_;
    Actions actions_;
    Subscription collapseObservation_;
};

} // namespace tavrin
