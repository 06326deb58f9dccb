#pragma once

#include "core/menu_bar_manager.h"
#include "views/view.h"

#include <optional>
#include <string>

namespace tavrin {

/// The configure window: the items in a Shown and a Hidden section, moved from one to the other by dragging,
/// by keyboard or by a menu, and the control that applies the choice. Main thread.
class CollapsedMenuView {
  public:
    /// The tree for the present state. Its actions refer to this object and to `manager`.
    View content(MenuBarManager& manager);

  private:
    enum class Section { Shown, Hidden };

    View section(MenuBarManager& manager, Section section);
    View sections(MenuBarManager& manager);
    View body(MenuBarManager& manager);
    void dragDidMove(MenuBarManager& manager, Section section, bool isOver);

    /// The section that a drag is over.
    std::optional<Section> targetedSection_;
};

/// What applying would do: "2 items will move • 1 overflow item will show only with all items"; empty when
/// nothing.
std::string placementSummary(const SkerrowPolicy& policy);

} // namespace tavrin
