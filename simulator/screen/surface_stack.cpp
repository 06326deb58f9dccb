#include "screen/surface_stack.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace mac_model {

Surface& SurfaceStack::add(Surface surface) {
    surface.identifier = SurfaceIdentifier{nextIdentifier_++};
    auto owned = std::make_unique<Surface>(std::move(surface));
    Surface& added = *owned;
    insert(std::move(owned));
    return added;
}

void SurfaceStack::insert(std::unique_ptr<Surface> surface) {
    const auto place =
        std::ranges::find_if(surfaces_, [&](const auto& other) { return other->kind > surface->kind; });
    surfaces_.insert(place, std::move(surface));
}

SurfaceStack::Surfaces::const_iterator SurfaceStack::positionOf(SurfaceIdentifier identifier) const {
    return std::ranges::find(surfaces_, identifier, [](const auto& surface) { return surface->identifier; });
}

Surface* SurfaceStack::find(SurfaceIdentifier identifier) {
    const auto found = positionOf(identifier);
    return found == surfaces_.end() ? nullptr : found->get();
}

Surface* SurfaceStack::at(Point point) const {
    for (const auto& surface : surfaces_ | std::views::reverse)
        if (surface->kind != SurfaceKind::Drag && surface->frame.contains(point)) return surface.get();
    return nullptr;
}

std::unique_ptr<Surface> SurfaceStack::take(SurfaceIdentifier identifier) {
    const auto found = positionOf(identifier);
    if (found == surfaces_.end()) return nullptr;
    const auto place = surfaces_.begin() + (found - surfaces_.cbegin());
    auto taken = std::move(*place);
    surfaces_.erase(place);
    return taken;
}

void SurfaceStack::remove(SurfaceIdentifier identifier) {
    std::erase(keyHistory_, identifier);
    const auto taken = take(identifier);
    hasGone(taken.get());
}

void SurfaceStack::hasGone(Surface* surface) {
    if (!surface) return;
    if (surface->identifier == key_ && surface->onResignedKey) surface->onResignedKey();
    noteKeyChange();
}

void SurfaceStack::dismiss(SurfaceIdentifier identifier) {
    std::erase(keyHistory_, identifier);
    const auto taken = take(identifier);
    hasGone(taken.get());
    if (taken && taken->onDismissed) taken->onDismissed();
}

void SurfaceStack::dismissAllOf(ProcessIdentifier owner) {
    std::vector<SurfaceIdentifier> owned;
    for (const auto& surface : surfaces_)
        if (surface->owner == owner) owned.push_back(surface->identifier);
    for (const auto identifier : owned | std::views::reverse) dismiss(identifier);
}

std::vector<StatusItemIdentifier> SurfaceStack::dismissForPressAt(Point point) {
    std::vector<std::pair<SurfaceIdentifier, StatusItemIdentifier>> closing;
    for (const auto& surface : surfaces_ | std::views::reverse)
        if (surface->outsidePress == OutsidePress::Closes && !surface->frame.contains(point))
            closing.emplace_back(surface->identifier, surface->anchor);
    std::vector<StatusItemIdentifier> anchors;
    for (const auto& [identifier, anchor] : closing) {
        dismiss(identifier);
        anchors.push_back(anchor);
    }
    return anchors;
}

void SurfaceStack::raise(SurfaceIdentifier identifier) {
    if (auto taken = take(identifier)) insert(std::move(taken));
}

void SurfaceStack::makeKey(SurfaceIdentifier identifier) {
    std::erase(keyHistory_, identifier);
    if (find(identifier) != nullptr) keyHistory_.push_back(identifier);
    noteKeyChange();
}

void SurfaceStack::setActive(ProcessIdentifier process) {
    active_ = process;
    noteKeyChange();
}

Surface* SurfaceStack::alertOf(ProcessIdentifier owner) const {
    for (const auto& surface : surfaces_ | std::views::reverse)
        if (surface->kind == SurfaceKind::Alert && surface->owner == owner) return surface.get();
    return nullptr;
}

Surface* SurfaceStack::alertBefore(const Surface& surface) const {
    if (surface.kind >= SurfaceKind::Menu) return nullptr;
    auto* alert = alertOf(surface.owner);
    return alert == &surface ? nullptr : alert;
}

bool SurfaceStack::canBeKey(const Surface& surface) const {
    if (alertBefore(surface)) return false;
    const bool needsActivity = surface.kind == SurfaceKind::Window || surface.kind == SurfaceKind::Alert ||
                               surface.kind == SurfaceKind::Popover;
    return !needsActivity || surface.owner == active_;
}

Surface* SurfaceStack::key() const {
    for (const auto identifier : keyHistory_ | std::views::reverse)
        if (auto* surface = positionOf(identifier)->get(); canBeKey(*surface)) return surface;
    return nullptr;
}

void SurfaceStack::noteKeyChange() {
    const auto* now = key();
    const auto before = std::exchange(key_, now ? now->identifier : SurfaceIdentifier::None);
    if (before == key_) return;
    if (const auto* resigned = find(before); resigned && resigned->onResignedKey) resigned->onResignedKey();
    onKeyChanged.emit();
}

void SurfaceStack::moveBy(Surface& surface, double dx, double dy) {
    surface.frame.x += dx;
    surface.frame.y += dy;
    if (surface.arrowX) *surface.arrowX += dx;
    mac_model::moveBy(surface.content, dx, dy);
    for (auto& row : surface.rows)
        row.frame = {row.frame.x + dx, row.frame.y + dy, row.frame.width, row.frame.height};
}

} // namespace mac_model
