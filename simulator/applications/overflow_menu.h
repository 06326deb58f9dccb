#pragma once

#include "applications/status_item_surfaces.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "system/process_table.h"
#include "system/screens_model.h"

namespace mac_model {

/// The menu of the button "«", with the items that find no room in that display's bar. Choosing one does what
/// a click on the item does.
class OverflowMenu {
  public:
    OverflowMenu(const Arrangement& arrangement, StatusItemTable& items, const ProcessTable& processes,
                 const ScreensModel& screens, MenuTracking& menus, StatusItemSurfaces& surfaces)
        : arrangement_(arrangement)
        , items_(items)
        , processes_(processes)
        , screens_(screens)
        , menus_(menus)
        , surfaces_(surfaces) {}

    /// False when there is no such button at the point, or the agent doesn't respond.
    bool openAt(Point);

  private:
    const HostedBar* barAt(Point) const;
    void open(const HostedBar&);
    void act(StatusItemIdentifier);

    const Arrangement& arrangement_;
    StatusItemTable& items_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    MenuTracking& menus_;
    StatusItemSurfaces& surfaces_;
};

} // namespace mac_model
