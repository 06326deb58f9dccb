#pragma once

#include "accessibility/element.h"
#include "accessibility/menu_contents.h"
#include "applications/application_menus.h"
#include "applications/status_item_surfaces.h"
#include "vocabulary/vocabulary.h"

#include <string_view>

namespace mac_model {

/// Carries out Accessibility actions on the screen.
class AccessibilityActions {
  public:
    AccessibilityActions(StatusItemTable& items, ProcessTable& processes, StatusItemSurfaces& surfaces,
                         ApplicationMenus& applicationMenus, MenuTracking& menus,
                         const MenuContents& contents)
        : items_(items)
        , processes_(processes)
        , surfaces_(surfaces)
        , applicationMenus_(applicationMenus)
        , menus_(menus)
        , contents_(contents) {}

    /// Takes effect in the world at once.
    void perform(const ElementKey&, std::string_view action);

    void bringToFront(ProcessIdentifier process) { processes_.activate(process); }

  private:
    void actOn(StatusItemIdentifier, std::string_view action);
    void pressTitle(ProcessIdentifier, std::size_t title);
    void pressEntry(const ElementKey&);
    void cancelMenuOf(const ElementKey&);

    StatusItemTable& items_;
    ProcessTable& processes_;
    StatusItemSurfaces& surfaces_;
    ApplicationMenus& applicationMenus_;
    MenuTracking& menus_;
    const MenuContents& contents_;
};

} // namespace mac_model
