#pragma once

#include "applications/chosen_entries.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/screens_model.h"

#include <string>
#include <string_view>

namespace mac_model {

/// What a person calls a status item: its description, its title, or the name of its application.
std::string displayName(const StatusItemRecord&, const ProcessTable&);

/// What the status items of other applications open: menus, popovers and panels.
class StatusItemSurfaces {
  public:
    StatusItemSurfaces(StatusItemTable& items, const ProcessTable& processes, const ScreensModel& screens,
                       SurfaceStack& stack, MenuTracking& menus, ChosenEntries& chosen)
        : items_(items)
        , processes_(processes)
        , screens_(screens)
        , stack_(stack)
        , menus_(menus)
        , chosen_(chosen) {}

    /// Opens what the item opens, or closes it again. Nothing happens for a disabled item, and for one whose
    /// process doesn't respond.
    void toggle(StatusItemIdentifier);
    /// Runs the entry of the item's menu at this path, open or not.
    void choose(StatusItemIdentifier, const MenuPath&);
    /// Closes what belongs to items that are gone.
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
};

} // namespace mac_model
