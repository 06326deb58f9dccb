#include "native/policy/clock_place.h"

#include <algorithm>

namespace tavrin::ClockPlace {

std::vector<Rect> fallbackClockRects(std::span<const Screen> screens) {
    constexpr double width = 180;
    constexpr double heightMin = 24;
    std::vector<Rect> rects;
    for (const auto& [frame, scale, menuBarHeight, left, right] : screens)
        rects.push_back({frame.maxX() - width, frame.y, width, std::max(menuBarHeight, heightMin)});
    return rects;
}

bool isAt(Point pointer, std::span<const Rect> clockRects) {
    constexpr double margin = 2;
    return std::ranges::any_of(clockRects, [&](const Rect& rect) {
        return pointer.x >= rect.minX() - margin && pointer.x <= rect.maxX() + margin &&
               pointer.y >= rect.minY() - margin && pointer.y <= rect.maxY() + margin;
    });
}

} // namespace tavrin::ClockPlace
