#include "input/view_drag.h"

#include "views/drag_preview.h"
#include "views/view_builders.h"

#include <cmath>
#include <utility>
#include <variant>
#include <vector>

namespace mac_model {

namespace {

using tavrin::DragPreview;

namespace kinds = tavrin::kinds;

constexpr Seconds scrollInterval{0.03};
constexpr double previewWidthMax =
    2 * DragPreview::padding + DragPreview::pictureSide + DragPreview::spacing + DragPreview::labelWidthMax;

std::vector<View> pictureViews(const DragPreview& preview) {
    if (const auto* icon = std::get_if<kinds::Icon>(&preview.picture)) {
        auto view = tavrin::simple(*icon);
        view.width = view.height = DragPreview::pictureSide;
        return {std::move(view)};
    }
    const auto* symbol = std::get_if<kinds::Symbol>(&preview.picture);
    if (!symbol) return {};
    return {tavrin::symbol(symbol->name, 0.8 * DragPreview::pictureSide, symbol->tone)};
}

View shown(DragPreview preview) {
    auto parts = pictureViews(preview);
    if (!preview.label.empty()) parts.push_back(tavrin::text(std::move(preview.label)));
    return tavrin::row(std::move(parts), {.spacing = DragPreview::spacing, .padding = DragPreview::padding});
}

} // namespace

std::optional<ViewPath> dragSourceAt(const LaidOutView& root, Point point) {
    return deepestPressedAt(root, point, [](const LaidOutView& laidOut) {
        return laidOut.view.dragValue && laidOut.view.isEnabled;
    });
}

std::optional<ViewPath> dropTargetAt(const LaidOutView& root, Point point) {
    return deepestAt(root, point, [](const LaidOutView& laidOut) {
        return laidOut.view.onDrop != nullptr && laidOut.view.isEnabled;
    });
}

void ViewDrag::Target::tell(bool isOver) const {
    if (onDragOver) deliver([onDragOver = onDragOver, isOver] { onDragOver(isOver); });
}

void ViewDrag::begin(const Surface& surface) {
    cancel();
    const auto path = dragSourceAt(surface.content, pointer_.at);
    if (!path) return;
    const auto& dragged = *viewAt(surface.content, *path);
    load_ = Load{*dragged.view.dragValue, shown(tavrin::dragPreviewOf(viewOf(dragged))), surface.identifier,
                 surface.owner, pointer_.at};
}

void ViewDrag::pointerMoved() {
    if (!load_) return;
    if (!isUnderway()) {
        const auto from = load_->pressedAt;
        if (std::hypot(pointer_.at.x - from.x, pointer_.at.y - from.y) <= tavrin::dragThreshold) return;
        if (stack_.find(load_->source) == nullptr) return load_.reset();
        showPreview();
    }
    movePreview();
    enter(targetAtPointer());
    scrollLater();
}

void ViewDrag::showPreview() {
    Surface preview;
    preview.kind = SurfaceKind::Drag;
    preview.owner = load_->owner;
    preview.frame = Rect::from({}, measured(load_->preview, previewWidthMax));
    preview.content = laidOut(load_->preview, preview.frame);
    preview.onDismissed = [this] { cancel(); };
    preview_ = stack_.add(std::move(preview)).identifier;
}

void ViewDrag::movePreview() {
    auto* preview = stack_.find(preview_);
    if (!preview) return;
    const auto corner = preview->frame.origin();
    SurfaceStack::moveBy(*preview, pointer_.at.x - DragPreview::grip.x - corner.x,
                         pointer_.at.y - DragPreview::grip.y - corner.y);
}

std::optional<ViewDrag::Target> ViewDrag::targetAtPointer() const {
    const auto* surface = stack_.at(pointer_.at);
    if (!surface || !surface->deliver) return std::nullopt;
    const auto path = dropTargetAt(surface->content, pointer_.at);
    if (!path) return std::nullopt;
    const auto& view = viewAt(surface->content, *path)->view;
    return Target{surface->identifier, *path, surface->deliver, view.onDragOver, view.onDrop};
}

void ViewDrag::enter(std::optional<Target> target) {
    const bool isSame = over_ && target && over_->surface == target->surface && over_->path == target->path;
    const auto before = std::exchange(over_, std::move(target));
    if (isSame) return;
    if (before) before->tell(false);
    if (over_) over_->tell(true);
}

bool ViewDrag::drop() {
    if (!isUnderway()) return cancel();
    enter(targetAtPointer());
    const auto target = over_;
    const auto value = load_->value;
    cancel();
    if (target) target->deliver([onDrop = target->onDrop, value] { onDrop(value); });
    return true;
}

bool ViewDrag::cancel() {
    enter(std::nullopt);
    load_.reset();
    const auto preview = std::exchange(preview_, SurfaceIdentifier::None);
    stack_.remove(preview);
    return preview != SurfaceIdentifier::None;
}

/// How far the Scroll at the pointer is to move on; 0 when it has no further to go.
double ViewDrag::scrollStep() const {
    auto* surface = stack_.at(pointer_.at);
    const auto* scroll = surface ? scrollAt(surface->content, pointer_.at) : nullptr;
    if (!scroll || !isUnderway()) return 0;
    if (pointer_.at.y < scroll->frame.minY() + tavrin::dragScrollEdge && scroll->scrollOffset > 0)
        return -tavrin::dragScrollStep;
    const bool isAtEnd = scroll->scrollOffset >= scroll->scrollOffsetMax;
    return pointer_.at.y > scroll->frame.maxY() - tavrin::dragScrollEdge && !isAtEnd ? tavrin::dragScrollStep
                                                                                     : 0;
}

void ViewDrag::scrollLater() {
    if (isScrollPending_ || scrollStep() == 0) return;
    isScrollPending_ = true;
    calls_.after(scrollInterval, [this] { scroll(); });
}

void ViewDrag::scroll() {
    isScrollPending_ = false;
    const double step = scrollStep();
    if (step == 0) return;
    auto* scrolled = scrollAt(stack_.at(pointer_.at)->content, pointer_.at);
    scrollTo(*scrolled, scrolled->scrollOffset + step);
    enter(targetAtPointer());
    scrollLater();
}

} // namespace mac_model
