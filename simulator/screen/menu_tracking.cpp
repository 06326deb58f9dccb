#include "screen/menu_tracking.h"

#include "screen/menu_layout.h"
#include "screen/placement.h"

#include <cassert>
#include <utility>

namespace mac_model {

namespace {

bool canBeHighlighted(const MenuRow& row) { return row.item.enabled && !row.item.separator; }

} // namespace

void MenuTracking::open(MenuRequest request) {
    close();
    const auto screen = screenFor(screens_.screens(), request.area.origin());
    const auto frame = menuFrame(menuSize(request.items), request.area, screen);
    auto items = request.items;
    session_ = Session{std::move(request), {}, {}};
    addSurface(std::move(items), frame);
}

void MenuTracking::addSurface(std::vector<MenuItemSpec> items, Rect frame) {
    Surface menu;
    menu.kind = SurfaceKind::Menu;
    menu.owner = session_->request.owner;
    menu.anchor = session_->request.anchor.item;
    menu.frame = frame;
    menu.rows = menuRows(std::move(items), frame);
    menu.onDismissed = [this] { close(); };
    session_->surfaces.push_back(stack_.add(std::move(menu)).identifier);
    onChanged.emit();
}

void MenuTracking::close() {
    if (!session_) return;
    const auto closed = *std::exchange(session_, std::nullopt);
    for (const auto surface : closed.surfaces) stack_.remove(surface);
    onChanged.emit();
    if (closed.request.onClosed) closed.request.onClosed();
}

std::optional<MenuAnchor> MenuTracking::anchor() const {
    if (!session_) return std::nullopt;
    return session_->request.anchor;
}

std::vector<SurfaceIdentifier> MenuTracking::menus() const {
    return session_ ? session_->surfaces : std::vector<SurfaceIdentifier>{};
}

Surface& MenuTracking::surfaceAt(std::size_t depth) const {
    auto* surface = stack_.find(session_->surfaces[depth]);
    assert(surface && "dismissing a menu ends the session");
    return *surface;
}

bool MenuTracking::contains(Point point) const {
    if (!session_) return false;
    for (std::size_t depth = 0; depth < session_->surfaces.size(); ++depth)
        if (surfaceAt(depth).frame.contains(point)) return true;
    return false;
}

std::optional<MenuTracking::Place> MenuTracking::placeAt(Point point) const {
    if (!session_) return std::nullopt;
    for (std::size_t depth = session_->surfaces.size(); depth-- > 0;) {
        const auto& surface = surfaceAt(depth);
        if (!surface.frame.contains(point)) continue;
        for (std::size_t row = 0; row < surface.rows.size(); ++row)
            if (surface.rows[row].frame.contains(point)) return Place{depth, row};
        return std::nullopt;
    }
    return std::nullopt;
}

void MenuTracking::pointerMovedTo(Point point) {
    if (const auto place = placeAt(point)) highlight(*place);
}

void MenuTracking::highlight(Place place) {
    const bool isSubmenuOpen =
        session_->path.size() > place.depth && session_->path[place.depth] == place.row;
    auto& surface = surfaceAt(place.depth);
    const auto& row = surface.rows[place.row];
    surface.highlightedRow = canBeHighlighted(row) ? std::optional(place.row) : std::nullopt;
    if (isSubmenuOpen) return closeDeeperThan(place.depth + 1);
    closeDeeperThan(place.depth);
    if (canBeHighlighted(row) && !row.item.items.empty()) openSubmenu(place);
}

void MenuTracking::openSubmenu(Place place) {
    const auto row = surfaceAt(place.depth).rows[place.row];
    const auto screen = screenFor(screens_.screens(), row.frame.origin());
    const auto frame = submenuFrame(menuSize(row.item.items), row.frame, screen);
    session_->path.resize(place.depth);
    session_->path.push_back(place.row);
    addSurface(row.item.items, frame);
}

void MenuTracking::closeDeeperThan(std::size_t depth) {
    while (session_->surfaces.size() > depth + 1) {
        stack_.remove(session_->surfaces.back());
        session_->surfaces.pop_back();
    }
    if (session_->path.size() <= depth) return;
    session_->path.resize(depth);
    onChanged.emit();
}

void MenuTracking::openSubmenuAt(const MenuPath& path) {
    for (std::size_t depth = 0; session_ && depth < path.size(); ++depth) {
        const bool isOpen = session_->path.size() > depth && session_->path[depth] == path[depth];
        if (isOpen) continue;
        const auto& rows = surfaceAt(depth).rows;
        if (path[depth] >= rows.size() || rows[path[depth]].item.items.empty()) return;
        highlight({depth, path[depth]});
    }
}

void MenuTracking::releasedAt(Point point) {
    const auto place = placeAt(point);
    if (!place || !isChoosable(surfaceAt(place->depth).rows[place->row].item)) return;
    MenuPath path(session_->path.begin(), session_->path.begin() + static_cast<std::ptrdiff_t>(place->depth));
    path.push_back(place->row);
    choose(path);
}

void MenuTracking::choose(const MenuPath& path) {
    if (!session_) return;
    const auto onChosen = session_->request.onChosen;
    close();
    if (onChosen) onChosen(path);
}

bool MenuTracking::chooseByKey(std::string_view key, const std::vector<Modifier>& modifiers) {
    if (!session_) return false;
    const auto path = pathOfKeyEquivalent(session_->request.items, key, modifiers);
    if (path) choose(*path);
    return path.has_value();
}

void MenuTracking::moveHighlight(int step) {
    if (!session_) return;
    auto& surface = surfaceAt(session_->surfaces.size() - 1);
    const auto count = static_cast<int>(surface.rows.size());
    int row = surface.highlightedRow ? static_cast<int>(*surface.highlightedRow) : (step > 0 ? -1 : count);
    do row += step;
    while (row >= 0 && row < count && !canBeHighlighted(surface.rows[static_cast<std::size_t>(row)]));
    if (row >= 0 && row < count) surface.highlightedRow = static_cast<std::size_t>(row);
}

bool MenuTracking::openHighlighted() {
    if (!session_) return false;
    const auto depth = session_->surfaces.size() - 1;
    const auto row = surfaceAt(depth).highlightedRow;
    if (!row || surfaceAt(depth).rows[*row].item.items.empty()) return false;
    openSubmenu({depth, *row});
    moveHighlight(1);
    return true;
}

void MenuTracking::pickHighlighted() {
    if (!session_ || openHighlighted()) return;
    const auto row = surfaceAt(session_->surfaces.size() - 1).highlightedRow;
    if (!row) return close();
    auto path = session_->path;
    path.push_back(*row);
    choose(path);
}

void MenuTracking::closeInnermost() {
    if (session_ && session_->surfaces.size() > 1) closeDeeperThan(session_->surfaces.size() - 2);
}

} // namespace mac_model
