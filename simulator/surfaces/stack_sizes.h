#pragma once

#include "platform/geometry.h"
#include "platform/view.h"

#include <vector>

namespace mac_model {

/// An offer that no view exhausts.
inline constexpr double widthUnlimited = 1e6;

enum class Axis { Vertical, Horizontal };

/// The direction in which a view of this kind stacks its children.
Axis axisOf(tavrin::ViewKind);

/// `measured`, for a view that stands in a stack of direction `parent`.
tavrin::Size measuredIn(Axis parent, const tavrin::View&, double width);

/// Whether the view takes all the width that its stack has.
bool fillsWidth(Axis parent, const tavrin::View&);

/// The size of each child of a stack whose own content area measures `room`. A row narrows what can be
/// narrowed; spacers, or else the children that fill, share what is left. In a column that is too short, what
/// scrolls gives way.
std::vector<tavrin::Size> sizesOfChildren(const tavrin::View& stack, tavrin::Size room);

} // namespace mac_model
