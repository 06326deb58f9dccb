#pragma once

#include "base/geometry.h"

#include <optional>
#include <span>

namespace tavrin {

/// Where Tavrin's control has to be dragged to lead the row of items.
namespace NativeControlPinning {

/// Points between the control and the item that it is dropped before.
inline constexpr double usualGap = 4;

struct HorizontalRange {
    double min;
    double max;
};

/// The point to drop the control's middle at; none when it leads the row already, when there is no row, or
/// when there is no room for it before the row.
std::optional<Point> dragDestination(const Rect& controlFrame, std::span<const Rect> itemFrames,
                                     HorizontalRange range, double gap = usualGap);

/// Whether there is a row and the control leads it.
bool leads(const Rect& controlFrame, std::span<const Rect> itemFrames, HorizontalRange range);

} // namespace NativeControlPinning

} // namespace tavrin
