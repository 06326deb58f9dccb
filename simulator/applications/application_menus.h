#pragma once

#include "applications/chosen_entries.h"
#include "menu_bar/titles.h"
#include "screen/menu_tracking.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <string_view>
#include <vector>

namespace mac_model {

/// The menus at the left of the menu bar: those of the application that owns it.
class ApplicationMenus {
  public:
    ApplicationMenus(ProcessTable& processes, const ScreensModel& screens, MenuTracking& menus,
                     ChosenEntries& chosen)
        : processes_(processes)
        , screens_(screens)
        , menus_(menus)
        , chosen_(chosen) {}

    /// The titles on the screen, from left to right; none when no application has menus or
    /// the menu bar isn't visible.
    std::vector<MenuTitle> titlesOn(const ScreenSpec&) const;
    /// The number of the title at a point of any screen.
    std::optional<std::size_t> titleAt(Point) const;

    /// Opens the menu on the screen with the point, or closes it when it is open.
    void toggle(std::size_t title, Point);
    /// Runs an entry of the application's menu, open or not.
    void choose(ProcessIdentifier, std::size_t title, const MenuPath&);
    /// Runs the entry of the frontmost application with this key equivalent; false when there is none.
    bool chooseByKey(std::string_view key, const std::vector<Modifier>&);

  private:
    void run(ProcessIdentifier, std::size_t title, const MenuPath&);

    ProcessTable& processes_;
    const ScreensModel& screens_;
    MenuTracking& menus_;
    ChosenEntries& chosen_;
};

} // namespace mac_model
