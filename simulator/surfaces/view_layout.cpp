#include "surfaces/view_layout.h"

#include "surfaces/control_sizes.h"
#include "surfaces/stack_sizes.h"
#include "surfaces/text_metrics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mac_model {

namespace {

using tavrin::Rect;
using tavrin::View;
using tavrin::ViewKind;

Rect insetBy(Rect frame, double inset) {
    return {frame.x + inset, frame.y + inset, std::max(0.0, frame.width - 2 * inset),
            std::max(0.0, frame.height - 2 * inset)};
}

double startOf(double begin, double room, double size, bool isCentered) {
    return isCentered ? begin + std::round(std::max(0.0, room - size) / 2) : begin;
}

void layOutStack(LaidOutView& stack, Rect inside) {
    const bool isRow = stack.view.kind == ViewKind::Row;
    const bool isCentered = stack.view.isCentered;
    const auto sizes = sizesOfChildren(stack.view, inside.size());
    double x = inside.x;
    double y = inside.y;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (isRow)
            y = startOf(inside.y, inside.height, sizes[i].height, isCentered);
        else
            x = startOf(inside.x, inside.width, sizes[i].width, isCentered);
        stack.children.push_back(laidOut(std::move(stack.view.children[i]), Rect::from({x, y}, sizes[i])));
        if (isRow)
            x += sizes[i].width + stack.view.spacing;
        else
            y += sizes[i].height + stack.view.spacing;
    }
}

/// Its child is as wide as the Scroll and as tall as it wants to be.
void layOutScroll(LaidOutView& scroll, Rect inside) {
    double bottom = inside.y;
    for (auto& child : scroll.view.children) {
        const double height = measured(child, inside.width).height;
        scroll.children.push_back(laidOut(std::move(child), {inside.x, bottom, inside.width, height}));
        bottom += height;
    }
    scroll.scrollOffsetMax = std::max(0.0, bottom - inside.maxY());
}

} // namespace

LaidOutView laidOut(View view, Rect frame) {
    LaidOutView result;
    result.view = std::move(view);
    result.frame = frame;
    const Rect inside = insetBy(frame, result.view.padding);
    switch (result.view.kind) {
    case ViewKind::Column:
    case ViewKind::Card:
    case ViewKind::Row:
        layOutStack(result, inside);
        break;
    case ViewKind::Scroll:
        layOutScroll(result, inside);
        break;
    case ViewKind::Text:
    case ViewKind::Checkbox:
        if (result.view.text.empty()) break;
        result.lines =
            wrapped(result.view.text, result.view.textStyle, textWidthOf(result.view, inside.width));
        break;
    default:
        break;
    }
    result.view.children.clear();
    return result;
}

void moveBy(LaidOutView& view, double dx, double dy) {
    view.frame.x += dx;
    view.frame.y += dy;
    for (auto& child : view.children) moveBy(child, dx, dy);
}

void scrollTo(LaidOutView& scroll, double offset) {
    offset = std::clamp(offset, 0.0, scroll.scrollOffsetMax);
    for (auto& child : scroll.children) moveBy(child, 0, scroll.scrollOffset - offset);
    scroll.scrollOffset = offset;
}

void carryScrolling(const LaidOutView& before, LaidOutView& now) {
    if (before.view.kind != now.view.kind) return;
    if (now.view.kind == ViewKind::Scroll) scrollTo(now, before.scrollOffset);
    const auto shared = std::min(before.children.size(), now.children.size());
    for (std::size_t i = 0; i < shared; ++i) carryScrolling(before.children[i], now.children[i]);
}

} // namespace mac_model
