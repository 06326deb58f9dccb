#pragma once

#include "applications/application_menus.h"
#include "applications/chosen_entries.h"
#include "applications/notification_center.h"
#include "applications/status_item_surfaces.h"
#include "input/devices.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/behaviour.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/visibility_lists.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// What the things on the screens know of the rest of the Mac.
struct ScreenSurroundings {
    ProcessTable& processes;
    ScreensModel& screens;
    StatusItemTable& items;
    const VisibilityLists& visibility;
    const Behaviour& behaviour;
};

/// Everything on the screens besides status items, and the pointer over it.
struct ScreenContent : Devices {
    ScreenContent(VirtualScheduler& scheduler, const ScreenSurroundings& mac)
        : menus(scheduler, stack, mac.screens)
        , chosen(scheduler)
        , applicationMenus(mac.processes, mac.screens, menus, chosen)
        , notificationCenter(mac.processes, mac.screens, mac.visibility, stack, mac.behaviour)
        , statusItems(mac.items, mac.processes, mac.screens, {stack, menus, chosen, notificationCenter}) {}

    SurfaceStack stack;
    MenuTracking menus;
    ChosenEntries chosen;
    ApplicationMenus applicationMenus;
    NotificationCenter notificationCenter;
    StatusItemSurfaces statusItems;
};

} // namespace mac_model
