#pragma once

#include "base/geometry.h"
#include "views/view.h"

#include <vector>

namespace tavrin {

/// What a popover and a window offer to content that names no width itself, in points.
inline constexpr double popoverWidthMax = 440;
inline constexpr double windowWidthMax = 640;

/// An offer that no view exhausts, in points.
inline constexpr double widthUnlimited = 1e6;

/// How large a platform draws what has no children.
class ControlSizes {
  public:
    virtual ~ControlSizes() = default;

    /// The size of a view of a kind without children, without its padding, when it is offered `width`; less
    /// when it needs less, more only where something cannot be narrowed.
    virtual Size sizeOf(const View& control, double width) const = 0;
};

// Where the views of a tree stand. All platforms share it, so that a tree that fits on one fits on all.

/// The size that the view takes when it is offered `width`; less when it needs less, more only where
/// something cannot be narrowed.
Size measured(const View&, double width, const ControlSizes&);

/// The frames of the children of a stack or a Scroll of this size, from its top left corner. A row narrows
/// what can be narrowed; spacers, or else the children that fill, share what is left. In a column that is too
/// short, what scrolls gives way. The child of a Scroll is as wide as the Scroll and as tall as it wants to
/// be.
std::vector<Rect> framesOfChildren(const View&, Size, const ControlSizes&);

} // namespace tavrin
