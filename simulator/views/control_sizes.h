#pragma once

#include "base/geometry.h"
#include "views/view.h"

namespace mac_model {

inline constexpr double checkboxBoxWidth = 14;
inline constexpr double checkboxGap = 6;

/// The size of a view that has no children, without its padding.
tavrin::Size sizeOfControl(const tavrin::View&, double width);

/// The width at which the text of a Text or a Checkbox of this width wraps.
double textWidthOf(const tavrin::View&, double width);

} // namespace mac_model
