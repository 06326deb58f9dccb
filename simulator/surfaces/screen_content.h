#pragma once

#include "model/mac.h"
#include "surfaces/application_menus.h"
#include "surfaces/chosen_entries.h"
#include "surfaces/event_log.h"
#include "surfaces/menu_tracking.h"
#include "surfaces/pointer.h"
#include "surfaces/program_panels.h"
#include "surfaces/program_presentation.h"
#include "surfaces/status_item_surfaces.h"
#include "surfaces/surface_stack.h"
#include "surfaces/system_settings.h"

#include <vector>

namespace mac_model {

/// All that is on the screens besides status items, wired to the Mac that it belongs to. It must be destroyed
/// before the Mac, after the program's end.
class ScreenContent {
  public:
    explicit ScreenContent(Mac&);
    ScreenContent(const ScreenContent&) = delete;
    ScreenContent& operator=(const ScreenContent&) = delete;

    Pointer pointer;
    EventLog events;
    Cursor cursor{pointer, events};
    SurfaceStack stack;
    MenuTracking menus;
    ChosenEntries chosen;
    ApplicationMenus applicationMenus;
    StatusItemSurfaces statusItems;
    ProgramPresentation presentation;

  private:
    void installActions(Mac&);
    void noteOpenMenu(Mac&) const;
    std::vector<tavrin::OnScreenWindow> windows() const;

    SystemSettings settings_;
    ProgramPanels panels_;
    std::vector<tavrin::Subscription> subscriptions_;
};

} // namespace mac_model
