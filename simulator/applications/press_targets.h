#pragma once

#include "applications/application_menus.h"
#include "applications/overflow_menu.h"
#include "applications/status_item_surfaces.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/item_drag.h"
#include "menu_bar/status_item_table.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/screens_model.h"

namespace mac_model {

/// Everything that a press of the pointer can meet, from front to back.
struct PressTargets {
    MenuTracking& menus;
    SurfaceStack& surfaces;
    ApplicationMenus& applicationMenus;
    StatusItemTable& items;
    Arrangement& arrangement;
    ItemDrag& itemDrag;
    StatusItemSurfaces& itemSurfaces;
    OverflowMenu& overflow;
    ProcessTable& processes;
    ScreensModel& screens;
};

} // namespace mac_model
