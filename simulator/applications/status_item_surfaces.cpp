#include "applications/status_item_surfaces.h"

#include "menu_bar/press_place.h"
#include "screen/menu_layout.h"
#include "screen/placement.h"
#include "views/view_builders.h"
#include "vocabulary/vocabulary.h"

#include <utility>
#include <vector>

namespace mac_model {

using tavrin::column;
using tavrin::text;

namespace {

constexpr double contentWidth = 260;

std::string nameOfOwner(const StatusItemRecord& item, const ProcessTable& processes) {
    const auto* process = processes.find(item.owner);
    return process ? process->application.name : std::string{};
}

View contentOf(const std::string& name, const std::string& owner) {
    std::vector<View> lines{text(name, {.style = TextStyle::Heading})};
    if (owner != name) lines.push_back(text(owner, {.tone = Tone::Secondary}));
    return column(std::move(lines), {.padding = 14, .width = contentWidth});
}

} // namespace

std::string displayName(const StatusItemRecord& item, const ProcessTable& processes) {
    if (!item.spec.description.empty()) return item.spec.description;
    return !item.spec.title.empty() ? item.spec.title : nameOfOwner(item, processes);
}

bool StatusItemSurfaces::canAct(const StatusItemRecord& item) const {
    const auto* owner = processes_.find(item.owner);
    return item.spec.enabled && item.frame && owner && owner->application.responding;
}

SurfaceIdentifier StatusItemSurfaces::openSurfaceOf(StatusItemIdentifier item) const {
    for (const auto& surface : stack_.backToFront())
        if (surface->anchor == item && surface->kind != SurfaceKind::Menu) return surface->identifier;
    return SurfaceIdentifier::None;
}

void StatusItemSurfaces::toggle(StatusItemIdentifier identifier) {
    const auto* item = items_.find(identifier);
    if (!item || !canAct(*item)) return;
    if (notifications_.isOpenedBy(*item)) return notifications_.toggle(*item);
    if (menus_.anchor() == MenuAnchor{.item = identifier, .title = std::nullopt}) return menus_.close();
    if (const auto open = openSurfaceOf(identifier); open != SurfaceIdentifier::None)
        return stack_.dismiss(open);
    switch (item->spec.opens) {
    case Opens::Menu:
        return openMenu(*item);
    case Opens::Popover:
        return openContent(*item, SurfaceKind::Popover);
    case Opens::Panel:
        return openContent(*item, SurfaceKind::Panel);
    case Opens::Nothing:
        return;
    }
}

void StatusItemSurfaces::openMenu(const StatusItemRecord& item) {
    const auto identifier = item.identifier;
    MenuRequest request;
    request.items = item.spec.menu;
    request.area = areaAtPress(item, *item.frame, screens_.screens());
    request.owner = item.owner;
    request.anchor.item = identifier;
    request.onChosen = [this, identifier](const MenuPath& path) { record(identifier, path); };
    request.onClosed = [this, identifier] { items_.setOpen(identifier, false); };
    menus_.open(std::move(request));
    items_.setOpen(identifier, true);
}

void StatusItemSurfaces::openContent(const StatusItemRecord& item, SurfaceKind kind) {
    const auto identifier = item.identifier;
    const auto name = displayName(item, processes_);
    const auto content = contentOf(name, nameOfOwner(item, processes_));
    Surface surface;
    surface.kind = kind;
    surface.owner = item.owner;
    surface.title = name;
    surface.anchor = identifier;
    surface.outsidePress = OutsidePress::Closes;
    const auto area = areaAtPress(item, *item.frame, screens_.screens());
    surface.frame =
        popoverFrame(measured(content, contentWidth), area, screenFor(screens_.screens(), area.middle()));
    if (kind == SurfaceKind::Popover) surface.arrowX = area.midX();
    surface.content = laidOut(content, surface.frame);
    surface.onDismissed = [this, identifier] { items_.setOpen(identifier, false); };
    stack_.makeKey(stack_.add(std::move(surface)).identifier);
    items_.setOpen(identifier, true);
}

void StatusItemSurfaces::choose(StatusItemIdentifier identifier, const MenuPath& path) {
    const auto* item = items_.find(identifier);
    const auto* entry = item ? entryAt(item->spec.menu, path) : nullptr;
    const bool isOpen = menus_.anchor() == MenuAnchor{.item = identifier, .title = std::nullopt};
    if (entry && !entry->items.empty() && isOpen) return menus_.openSubmenuAt(path);
    if (!entry || !isChoosable(*entry) || !canAct(*item)) return;
    if (isOpen) return menus_.choose(path);
    record(identifier, path);
}

void StatusItemSurfaces::record(StatusItemIdentifier identifier, const MenuPath& path) {
    const auto* item = items_.find(identifier);
    const auto* process = item ? processes_.find(item->owner) : nullptr;
    if (!process) return;
    chosen_.record(process->application.bundleIdentifier, displayName(*item, processes_),
                   titlesAlong(item->spec.menu, path));
}

void StatusItemSurfaces::closeOrphans() {
    const auto isGone = [this](StatusItemIdentifier identifier) {
        if (identifier == StatusItemIdentifier::None) return false;
        const auto* item = items_.find(identifier);
        return !item || !item->frame;
    };
    std::vector<SurfaceIdentifier> orphans;
    for (const auto& surface : stack_.backToFront())
        if (isGone(surface->anchor)) orphans.push_back(surface->identifier);
    for (const auto orphan : orphans) stack_.dismiss(orphan);
}

} // namespace mac_model
