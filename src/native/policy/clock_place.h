#pragma once

#include "base/geometry.h"
#include "platform/screens.h"

#include <span>
#include <vector>

namespace tavrin::ClockPlace {

/// Where the clock stands on each screen, when no scan has told. Rather too wide: a needless lift only shows
/// items for a moment, a missed one leaves the clock dead.
std::vector<Rect> fallbackClockRects(std::span<const Screen> screens);

/// Whether the pointer is in one of the rectangles or within two points of it, edges included.
bool isAt(Point pointer, std::span<const Rect> clockRects);

} // namespace tavrin::ClockPlace
