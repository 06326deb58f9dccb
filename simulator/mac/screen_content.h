#pragma once

#include "applications/application_menus.h"
#include "applications/chosen_entries.h"
#include "applications/program_panels.h"
#include "applications/status_item_surfaces.h"
#include "applications/system_settings.h"
#include "input/event_log.h"
#include "input/pointer.h"
#include "mac/mac.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "seam/program_presentation.h"

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
