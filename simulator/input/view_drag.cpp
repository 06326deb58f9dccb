#include "input/view_drag.h"

#include "views/view_builders.h"

#include <cmath>
#include <utility>

namespace mac_model {

namespace {

using tavrin::View;
using tavrin::ViewKind;

constexpr double threshold = 4; // points
constexpr double previewWidthMax = 320;
constexpr tavrin::Point previewGrip{14, 14}; // from the preview's corner to the pointer
constexpr double scrollEdge = 24;            // points in which a Scroll moves on
constexpr double scrollPoints = 10;
constexpr tavrin::Seconds scrollInterval{0.03};

/// The first view in the tree of one of two kinds.
const View* firstOf(const LaidOutView& root, ViewKind kind, ViewKind orKind) {
    const View* found = nullptr;
    forEachView(root, [&](const LaidOutView& laidOut, const ViewPath&) {
        const bool matches = laidOut.view.kind == kind || laidOut.view.kind == orKind;
        if (!found && matches) found = &laidOut.view;
    });
    return found;
}

std::string labelOf(const LaidOutView& dragged) {
    if (!dragged.view.accessibilityLabel.empty()) return dragged.view.accessibilityLabel;
    const auto* text = firstOf(dragged, ViewKind::Text, ViewKind::Button);
    return text ? text->text : std::string{};
}

View previewOf(const LaidOutView& dragged) {
    std::vector<View> parts;
    if (const auto* picture = firstOf(dragged, ViewKind::Icon, ViewKind::Symbol)) parts.push_back(*picture);
    if (auto label = labelOf(dragged); !label.empty()) parts.push_back(tavrin::text(std::move(label)));
    return tavrin::row(std::move(parts), {.padding = 6, .isCentered = true});
}

} // namespace

std::optional<ViewPath> dragSourceAt(const LaidOutView& root, tavrin::Point point) {
    return deepestPressedAt(root, point, [](const LaidOutView& laidOut) {
        return laidOut.view.dragValue && laidOut.view.isEnabled;
    });
}

std::optional<ViewPath> dropTargetAt(const LaidOutView& root, tavrin::Point point) {
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
    load_ = Load{*dragged.view.dragValue, previewOf(dragged), surface.identifier, surface.owner, pointer_.at};
}

void ViewDrag::pointerMoved() {
    if (!load_) return;
    if (!isUnderway()) {
        const auto from = load_->pressedAt;
        if (std::hypot(pointer_.at.x - from.x, pointer_.at.y - from.y) <= threshold) return;
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
    preview.frame = tavrin::Rect::from({}, measured(load_->preview, previewWidthMax));
    preview.content = laidOut(load_->preview, preview.frame);
    preview.onDismissed = [this] { cancel(); };
    preview_ = stack_.add(std::move(preview)).identifier;
}

void ViewDrag::movePreview() {
    auto* preview = stack_.find(preview_);
    if (!preview) return;
    const auto corner = preview->frame.origin();
    SurfaceStack::moveBy(*preview, pointer_.at.x - previewGrip.x - corner.x,
                         pointer_.at.y - previewGrip.y - corner.y);
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
    if (pointer_.at.y < scroll->frame.minY() + scrollEdge && scroll->scrollOffset > 0) return -scrollPoints;
    const bool isAtEnd = scroll->scrollOffset >= scroll->scrollOffsetMax;
    return pointer_.at.y > scroll->frame.maxY() - scrollEdge && !isAtEnd ? scrollPoints : 0;
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
