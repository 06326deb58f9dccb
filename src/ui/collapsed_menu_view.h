#pragma once

#include "ui/configure_model.h"
#include "views/view.h"

#include <optional>

namespace tavrin {

/// The configure window: the items in a Shown and a Hidden section, moved from one to the other by dragging,
/// by keyboard or by a menu, and the control that applies the choice.
class CollapsedMenuView {
  public:
    /// Makes the tree that shows the model. Its actions refer to this object.
    View content(const ConfigureModel& model);

  private:
    enum class Section { Shown, Hidden };

    View section(const ConfigureModel& model, Section section);
    View sections(const ConfigureModel& model);
    View body(const ConfigureModel& model);
    void dragDidMove(Section section, bool isOver);

    /// The section that a drag is over.
    std::optional<Section> targetedSection_;
};

} // namespace tavrin
