#pragma once

#include "applications/chosen_entries.h"
#include "applications/notification_center.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/screens_model.h"

#include <string>
#include <string_view>

namespace mac_model {

/// A person's name for a status item: its description, its title, or the name of its application.
std::string displayName(const StatusItemRecord&, const ProcessTable&);

/// Where the surfaces of status items open.
struct ItemStage {
    SurfaceStack& stack;
    MenuTracking& menus;
    ChosenEntries& chosen;
    NotificationCenter& notifications;
};

/// The menus, popovers and panels that status items of other applications open.
class StatusItemSurfaces {
  public:
    StatusItemSurfaces(StatusItemTable& items, const ProcessTable& processes, const ScreensModel& screens,
                       const ItemStage& stage)
        : items_(items)
        , processes_(processes)
        , screens_(screens)
        , stack_(stage.stack)
        , menus_(stage.menus)
        , chosen_(stage.chosen)
        , notifications_(stage.notifications) {}

    /// Opens what the item opens, or closes it again. Nothing happens for a disabled item, and for one whose
    /// process doesn't respond.
    void toggle(StatusItemIdentifier);
    /// Runs the entry of the item's menu at this path, open or not.
    void choose(StatusItemIdentifier, const MenuPath&);
    /// Closes the surfaces of items that are gone.
    void closeOrphans();

  private:
    void openMenu(const StatusItemRecord&);
    void openContent(const StatusItemRecord&, SurfaceKind);
    bool canAct(const StatusItemRecord&) const;
    SurfaceIdentifier openSurfaceOf(StatusItemIdentifier) const;
    void record(StatusItemIdentifier, const MenuPath&);

    StatusItemTable& items_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    SurfaceStack& stack_;
    MenuTracking& menus_;
    ChosenEntries& chosen_;
    NotificationCenter& notifications_;
};

} // namespace mac_model
