#include "native/policy/native_control_pinning.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavrin::NativeControlPinning {

namespace {

constexpr double sameItemDistance = 4;

/// The frame of another item in the row of the control.
bool isInRow(const Rect& item, const Rect& control, HorizontalRange range) {
    const double rowHeight = std::max(control.height, 1.0);
    const bool isControl = std::abs(item.minX() - control.minX()) <= sameItemDistance;
    return item.width > 0 && std::abs(item.midY() - control.midY()) <= rowHeight &&
           item.minX() >= range.min && item.maxX() <= range.max && !isControl;
}

/// The left edge of the row; none without a row.
std::optional<double> leadingEdge(const Rect& control, std::span<const Rect> items, HorizontalRange range) {
    std::vector<double> edges;
    for (const auto& item : items)
        if (isInRow(item, control, range)) edges.push_back(item.minX());
    return edges.empty() ? std::nullopt : std::optional(std::ranges::min(edges));
}

} // namespace

std::optional<Point> dragDestination(const Rect& controlFrame, std::span<const Rect> itemFrames,
                                     HorizontalRange range, double gap) {
    const auto leftmost = leadingEdge(controlFrame, itemFrames, range);
    if (!leftmost || controlFrame.minX() <= *leftmost) return std::nullopt;
    const double middle = *leftmost - gap - controlFrame.width / 2;
    const bool hasRoom = middle - controlFrame.width / 2 >= range.min;
    return hasRoom ? std::optional(Point{middle, controlFrame.midY()}) : std::nullopt;
}

bool leads(const Rect& controlFrame, std::span<const Rect> itemFrames, HorizontalRange range) {
    const auto leftmost = leadingEdge(controlFrame, itemFrames, range);
    return leftmost && controlFrame.minX() <= *leftmost;
}

} // namespace tavrin::NativeControlPinning
