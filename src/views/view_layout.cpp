#include "views/view_layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

namespace tavrin {

namespace {

enum class Axis { Vertical, Horizontal };

/// The direction in which the view stacks its children.
Axis axisOf(const View& view) { return is<kinds::Row>(view) ? Axis::Horizontal : Axis::Vertical; }

/// Without gaps for what is no stack.
kinds::Stacking stackingOf(const View& view) {
    constexpr kinds::Stacking none{.spacing = 0};
    return visitKind(
        view, [](const StackKind auto& stack) -> kinds::Stacking { return stack; },
        [=](const kinds::Scroll&) { return none; }, [=](const ControlKind auto&) { return none; },
        [=](const DisplayKind auto&) { return none; }, [=](const GapKind auto&) { return none; });
}

double gapsOf(const View& stack) {
    if (stack.children.empty()) return 0;
    return stackingOf(stack).spacing * static_cast<double>(stack.children.size() - 1);
}

double sumOf(const std::vector<Size>& sizes, double Size::* side) {
    return std::accumulate(sizes.begin(), sizes.end(), 0.0,
                           [&](double sum, Size s) { return sum + s.*side; });
}

double mostOf(const std::vector<Size>& sizes, double Size::* side) {
    return std::accumulate(sizes.begin(), sizes.end(), 0.0,
                           [&](double most, Size s) { return std::max(most, s.*side); });
}

std::vector<std::size_t> childrenThat(const View& stack, auto matches) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < stack.children.size(); ++i)
        if (matches(stack.children[i])) found.push_back(i);
    return found;
}

bool isSpacer(const View& view) { return is<kinds::Spacer>(view); }

/// Whether the view takes all the width that its stack has.
bool fillsWidth(Axis parent, const View& view) {
    if (view.width) return false;
    const auto childFills = [&](const View& child) {
        return (is<kinds::Row>(view) && isSpacer(child)) || fillsWidth(axisOf(view), child);
    };
    return visitKind(
        view, [](const OneOf<kinds::Card, kinds::Scroll> auto&) { return true; },
        [&](const OneOf<kinds::Row, kinds::Column> auto&) {
            return std::ranges::any_of(view.children, childFills);
        },
        [](const kinds::Text& text) { return text.isCentered; },
        [&](const kinds::Divider&) { return parent == Axis::Vertical; },
        [](const OneOf<kinds::Symbol, kinds::Icon, kinds::Progress, kinds::Spacer> auto&) { return false; },
        [](const ControlKind auto&) { return false; });
}

bool canShorten(const View& view) {
    if (is<kinds::Scroll>(view)) return true;
    const bool isStack = is<kinds::Column>(view) || is<kinds::Card>(view);
    return isStack && !view.height && std::ranges::any_of(view.children, canShorten);
}

void shareOut(double left, const std::vector<std::size_t>& takers, std::vector<Size>& sizes,
              double Size::* side) {
    if (takers.empty() || left <= 0) return;
    for (const auto i : takers) sizes[i].*side += left / static_cast<double>(takers.size());
}

void shorten(double excess, const std::vector<std::size_t>& givers, std::vector<Size>& sizes) {
    for (const auto i : givers) {
        const double part = std::clamp(excess, 0.0, sizes[i].height);
        sizes[i].height -= part;
        excess -= part;
    }
}

double startOf(double begin, double room, double size, bool isCentered) {
    return isCentered ? begin + std::round(std::max(0.0, room - size) / 2) : begin;
}

class Measuring {
  public:
    explicit Measuring(const ControlSizes& controls) : controls_(controls) {}

    /// For a view that stands in a stack of direction `parent`.
    Size sizeIn(Axis parent, const View&, double width) const;
    /// For a stack whose content area measures `room`.
    std::vector<Size> sizesOfChildren(const View& stack, Size room) const;

  private:
    std::vector<double> widthsInRow(const View& row, double room) const;
    std::vector<Size> naturalSizes(const View& stack, double width) const;
    Size sizeOfStack(const View& stack, double width) const;
    Size sizeOfContent(Axis parent, const View&, double width) const;

    const ControlSizes& controls_;
};

/// Offers each child of a row an equal part of what is left, those that can give way least first, so that a
/// button keeps its width and the text beside it wraps.
std::vector<double> Measuring::widthsInRow(const View& row, double room) const {
    const auto& children = row.children;
    std::vector<double> widths(children.size());
    std::vector<double> slack(children.size());
    double natural = gapsOf(row);
    for (std::size_t i = 0; i < children.size(); ++i) {
        widths[i] = sizeIn(Axis::Horizontal, children[i], widthUnlimited).width;
        natural += widths[i];
    }
    if (natural <= room) return widths;

    for (std::size_t i = 0; i < children.size(); ++i)
        slack[i] = widths[i] - sizeIn(Axis::Horizontal, children[i], 0).width;
    std::vector<std::size_t> order(children.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {}, [&](std::size_t i) { return std::pair(slack[i], i); });
    double left = room - gapsOf(row);
    for (std::size_t turn = 0; turn < order.size(); ++turn) {
        const auto i = order[turn];
        const double part = std::max(0.0, left / static_cast<double>(order.size() - turn));
        if (widths[i] > part) widths[i] = sizeIn(Axis::Horizontal, children[i], part).width;
        left -= widths[i];
    }
    return widths;
}

std::vector<Size> Measuring::naturalSizes(const View& stack, double width) const {
    const Axis axis = axisOf(stack);
    std::vector<Size> sizes;
    const auto widths = axis == Axis::Horizontal ? widthsInRow(stack, width) : std::vector<double>{};
    for (std::size_t i = 0; i < stack.children.size(); ++i)
        sizes.push_back(sizeIn(axis, stack.children[i], axis == Axis::Horizontal ? widths[i] : width));
    return sizes;
}

Size Measuring::sizeOfStack(const View& stack, double width) const {
    const auto sizes = naturalSizes(stack, width);
    if (axisOf(stack) == Axis::Horizontal)
        return {sumOf(sizes, &Size::width) + gapsOf(stack), mostOf(sizes, &Size::height)};
    return {mostOf(sizes, &Size::width), sumOf(sizes, &Size::height) + gapsOf(stack)};
}

Size Measuring::sizeOfContent(Axis parent, const View& view, double width) const {
    return visitKind(
        view, [&](const StackKind auto&) { return sizeOfStack(view, width); },
        [&](const kinds::Scroll&) { return sizeOfStack(view, width); },
        [&](const kinds::Divider&) { return parent == Axis::Vertical ? Size{0, 1} : Size{1, 0}; },
        [](const kinds::Spacer&) { return Size{}; },
        [&](const ControlKind auto&) { return controls_.sizeOf(view, width); },
        [&](const DisplayKind auto&) { return controls_.sizeOf(view, width); });
}

Size Measuring::sizeIn(Axis parent, const View& view, double width) const {
    const double inside = std::max(0.0, view.width.value_or(width) - 2 * view.padding);
    Size size = sizeOfContent(parent, view, inside);
    size = {size.width + 2 * view.padding, size.height + 2 * view.padding};
    if (view.width) size.width = *view.width;
    if (view.height)
        size.height = is<kinds::Scroll>(view) ? std::min(size.height, *view.height) : *view.height;
    return size;
}

std::vector<Size> Measuring::sizesOfChildren(const View& stack, Size room) const {
    const Axis axis = axisOf(stack);
    auto sizes = naturalSizes(stack, room.width);
    const auto spacers = childrenThat(stack, isSpacer);
    const auto filling = childrenThat(stack, [&](const View& child) { return fillsWidth(axis, child); });
    if (axis == Axis::Vertical) {
        for (auto& size : sizes) size.width = std::min(size.width, room.width);
        for (const auto i : filling) sizes[i].width = room.width;
        const double left = room.height - sumOf(sizes, &Size::height) - gapsOf(stack);
        shareOut(left, spacers, sizes, &Size::height);
        shorten(-left, childrenThat(stack, canShorten), sizes);
        return sizes;
    }
    shareOut(room.width - sumOf(sizes, &Size::width) - gapsOf(stack), spacers.empty() ? filling : spacers,
             sizes, &Size::width);
    for (std::size_t i = 0; i < sizes.size(); ++i)
        if (is<kinds::Divider>(stack.children[i])) sizes[i].height = room.height;
    return sizes;
}

std::vector<Rect> framesInStack(const View& stack, Rect inside, const Measuring& measuring) {
    const bool isRow = is<kinds::Row>(stack);
    const auto [spacing, isCentered] = stackingOf(stack);
    std::vector<Rect> frames;
    double x = inside.x;
    double y = inside.y;
    for (const auto& size : measuring.sizesOfChildren(stack, inside.size())) {
        if (isRow)
            y = startOf(inside.y, inside.height, size.height, isCentered);
        else
            x = startOf(inside.x, inside.width, size.width, isCentered);
        frames.push_back(Rect::from({x, y}, size));
        (isRow ? x : y) += (isRow ? size.width : size.height) + spacing;
    }
    return frames;
}

std::vector<Rect> framesInScroll(const View& scroll, Rect inside, const Measuring& measuring) {
    std::vector<Rect> frames;
    double bottom = inside.y;
    for (const auto& child : scroll.children) {
        const double height = measuring.sizeIn(Axis::Vertical, child, inside.width).height;
        frames.push_back({inside.x, bottom, inside.width, height});
        bottom += height;
    }
    return frames;
}

} // namespace

Size measured(const View& view, double width, const ControlSizes& controls) {
    return Measuring(controls).sizeIn(Axis::Vertical, view, width);
}

std::vector<Rect> framesOfChildren(const View& view, Size size, const ControlSizes& controls) {
    const Rect inside{view.padding, view.padding, std::max(0.0, size.width - 2 * view.padding),
                      std::max(0.0, size.height - 2 * view.padding)};
    const Measuring measuring(controls);
    return is<kinds::Scroll>(view) ? framesInScroll(view, inside, measuring)
                                   : framesInStack(view, inside, measuring);
}

} // namespace tavrin
