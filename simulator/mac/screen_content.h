#pragma once

#include "applications/application_menus.h"
#include "applications/chosen_entries.h"
#include "applications/status_item_surfaces.h"
#include "input/devices.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// Everything on the screens besides status items, and the pointer over it.
struct ScreenContent : Devices {
    ScreenContent(VirtualScheduler& scheduler, ProcessTable& processes, ScreensModel& screens,
                  StatusItemTable& items)
        : menus(scheduler, stack, screens)
        , chosen(scheduler)
        , applicationMenus(processes, screens, menus, chosen)
        , statusItems(items, processes, screens, stack, menus, chosen) {}

    SurfaceStack stack;
    MenuTracking menus;
    ChosenEntries chosen;
    ApplicationMenus applicationMenus;
    StatusItemSurfaces statusItems;
};

} // namespace mac_model
