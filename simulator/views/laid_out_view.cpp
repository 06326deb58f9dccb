#include "views/laid_out_view.h"

#include "views/control_sizes.h"
#include "views/text_metrics.h"
#include "views/view_layout.h"

#include <algorithm>
#include <utility>

namespace mac_model {

namespace {

namespace kinds = tavrin::kinds;

/// Sizes of the model's own drawings.
class DrawnSizes final : public tavrin::ControlSizes {
  public:
    Size sizeOf(const View& control, double width) const override { return sizeOfControl(control, width); }
};

void layOutChildren(LaidOutView& parent) {
    const auto frames = tavrin::framesOfChildren(parent.view, parent.frame.size(), DrawnSizes());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Rect& inParent = frames[i];
        parent.children.push_back(laidOut(
            std::move(parent.view.children[i]),
            {parent.frame.x + inParent.x, parent.frame.y + inParent.y, inParent.width, inParent.height}));
    }
    if (!tavrin::is<kinds::Scroll>(parent.view) || parent.children.empty()) return;
    const double padding = parent.view.padding;
    const double bottom = std::max(parent.frame.minY() + padding, parent.frame.maxY() - padding);
    parent.scrollOffsetMax = std::max(0.0, parent.children.back().frame.maxY() - bottom);
}

} // namespace

Size measured(const View& view, double width) { return tavrin::measured(view, width, DrawnSizes()); }

LaidOutView laidOut(View view, Rect frame) {
    LaidOutView result;
    result.view = std::move(view);
    result.frame = frame;
    layOutChildren(result);
    result.lines = linesOfControl(result.view, std::max(0.0, frame.width - 2 * result.view.padding));
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
    if (!tavrin::isSameKind(before.view, now.view)) return;
    if (tavrin::is<kinds::Scroll>(now.view)) scrollTo(now, before.scrollOffset);
    const auto shared = std::min(before.children.size(), now.children.size());
    for (std::size_t i = 0; i < shared; ++i) carryScrolling(before.children[i], now.children[i]);
}

} // namespace mac_model
