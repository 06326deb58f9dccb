#include "native/policy/lane_layout.h"

#include "discovery/menu_bar_screen_geometry.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tavrin {

namespace {

/// From left to right.
std::vector<Rect> framesIn(const Rect& lane, std::span<const Rect> frames) {
    std::vector<Rect> inside;
    std::ranges::copy_if(frames, std::back_inserter(inside),
                         [&](const Rect& frame) { return frame.intersects(lane); });
    std::ranges::sort(inside, {}, &Rect::x);
    return inside;
}

double medianOf(std::vector<double> values) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double spacingOf(const std::vector<Rect>& fromLeft) {
    std::vector<double> gaps;
    for (std::size_t i = 1; i < fromLeft.size(); ++i)
        gaps.push_back(fromLeft[i].minX() - fromLeft[i - 1].maxX());
    return medianOf(std::move(gaps));
}

} // namespace

std::optional<LaneLayout> laneLayout(std::span<const Rect> laneFrames, std::span<const Screen> screens) {
    std::vector<Rect> most;
    Rect screenFrame;
    for (const auto& screen : screens) {
        if (!MenuBarScreenGeometry::hasNotch(screen)) continue;
        auto frames = framesIn(*screen.rightMenuBarArea, laneFrames);
        if (frames.size() <= most.size()) continue;
        most = std::move(frames);
        screenFrame = screen.frame;
    }
    if (most.empty()) return std::nullopt;
    return LaneLayout{screenFrame, most.front().minX(), spacingOf(most)};
}

} // namespace tavrin
