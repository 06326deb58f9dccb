#pragma once

#include "base/geometry.h"
#include "platform/screens.h"

#include <optional>
#include <span>

namespace tavrin {

/// Where the visible items right of a notch begin, and how they stand.
struct LaneLayout {
    Rect screenFrame;       // of the notched screen
    double leadingEdge = 0; // the x of the leftmost item
    double itemSpacing = 0; // between neighbours

    bool operator==(const LaneLayout&) const = default;
};

/// The lane of the notched screen on which most of these frames stand; none when they stand on no such
/// screen. It trusts only the room that items were seen to use.
std::optional<LaneLayout> laneLayout(std::span<const Rect> laneFrames, std::span<const Screen> screens);

} // namespace tavrin
