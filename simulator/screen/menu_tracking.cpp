#include "screen/menu_tracking.h"

#include "screen/menu_layout.h"
#include "screen/menu_scrolling.h"
#include "screen/placement.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

namespace mac_model {

namespace {

constexpr Seconds scrollInterval{0.03};

bool canBeHighlighted(const MenuRow& row) { return row.item.enabled && !row.item.separator; }

} // namespace

void MenuTracking::open(MenuRequest request) {
    close();
    const auto screen = screenFor(screens_.screens(), request.area.origin());
    const auto size = menuSize(request.items);
    const bool isAtPoint = request.area.size() == Size{};
    const auto frame = isAtPoint ? contextMenuFrame(size, request.area.origin(), screen)
                                 : menuFrame(size, request.area, screen);
    auto items = request.items;
    session_ = Session{std::move(request), {}, {}, {}};
    if (isAtPoint) session_->pressedAt = session_->request.area.origin();
    addSurface(std::move(items), size, frame);
}

/// `size` has room for all rows.
void MenuTracking::addSurface(std::vector<MenuItemSpec> items, Size size, Rect frame) {
    Surface menu;
    menu.kind = SurfaceKind::Menu;
    menu.owner = session_->request.owner;
    menu.anchor = session_->request.anchor.item;
    menu.frame = frame;
    menu.rows = menuRows(std::move(items), frame);
    menu.rowsOffsetMax = std::max(0.0, size.height - frame.height);
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

bool MenuTracking::contains(Point point) const { return depthAt(point).has_value(); }

/// Of the innermost menu there.
std::optional<std::size_t> MenuTracking::depthAt(Point point) const {
    if (!session_) return std::nullopt;
    for (std::size_t depth = session_->surfaces.size(); depth-- > 0;)
        if (surfaceAt(depth).frame.contains(point)) return depth;
    return std::nullopt;
}

std::optional<MenuTracking::Place> MenuTracking::placeAt(Point point) const {
    const auto depth = depthAt(point);
    if (!depth || !shownRows(surfaceAt(*depth)).contains(point)) return std::nullopt;
    const auto& rows = surfaceAt(*depth).rows;
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (rows[row].frame.contains(point)) return Place{*depth, row};
    return std::nullopt;
}

void MenuTracking::pointerMovedTo(Point point) {
    pointer_ = point;
    if (scrollStep() != 0) return scrollLater();
    if (const auto place = placeAt(point)) highlight(*place);
}

/// What the arrow under the pointer does.
double MenuTracking::scrollStep() const {
    const auto depth = depthAt(pointer_);
    return depth ? scrollStepAt(surfaceAt(*depth), pointer_) : 0;
}

void MenuTracking::scrollLater() {
    if (std::exchange(isScrollPending_, true)) return;
    world_.after(scrollInterval, [this] { scrollOn(); });
}

void MenuTracking::scrollOn() {
    isScrollPending_ = false;
    const auto depth = depthAt(pointer_);
    if (depth && scrollRows(*depth, scrollStep())) scrollLater();
}

bool MenuTracking::scroll(Point point, double dy) {
    pointer_ = point;
    const auto depth = depthAt(point);
    return depth && scrollRows(*depth, -dy);
}

bool MenuTracking::scrollRows(std::size_t depth, double distance) {
    auto& menu = surfaceAt(depth);
    const double before = menu.rowsOffset;
    scrollRowsTo(menu, before + distance);
    if (menu.rowsOffset == before) return false;
    closeDeeperThan(depth);
    highlightAtPointer(depth);
    return true;
}

/// The rows moved and not the pointer: no submenu opens.
void MenuTracking::highlightAtPointer(std::size_t depth) {
    auto& menu = surfaceAt(depth);
    const auto place = placeAt(pointer_);
    const bool isOnRow = place && place->depth == depth && canBeHighlighted(menu.rows[place->row]);
    menu.highlightedRow = isOnRow ? std::optional(place->row) : std::nullopt;
}

void MenuTracking::reveal(SurfaceIdentifier menu, std::size_t row) {
    auto* surface = stack_.find(menu);
    if (surface && row < surface->rows.size()) revealRow(*surface, row);
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
    const auto size = menuSize(row.item.items);
    session_->path.resize(place.depth);
    session_->path.push_back(place.row);
    addSurface(row.item.items, size, submenuFrame(size, row.frame, screen));
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
        revealRow(surfaceAt(depth), path[depth]);
        highlight({depth, path[depth]});
    }
}

void MenuTracking::releasedAt(Point point) {
    if (session_ && std::exchange(session_->pressedAt, std::nullopt) == point) return;
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
    if (row < 0 || row >= count) return;
    surface.highlightedRow = static_cast<std::size_t>(row);
    revealRow(surface, *surface.highlightedRow);
}

void MenuTracking::moveHighlightByPage(int step) {
    if (!session_) return;
    auto& menu = surfaceAt(session_->surfaces.size() - 1);
    if (!menu.highlightedRow) return moveHighlight(step);
    const double page = heightOfPage(menu) - menu.rows[*menu.highlightedRow].frame.height;
    const auto from = *menu.highlightedRow;
    const auto distance = [&] {
        return std::abs(menu.rows[*menu.highlightedRow].frame.y - menu.rows[from].frame.y);
    };
    for (auto before = from + 1; before != *menu.highlightedRow && distance() < page;) {
        before = *menu.highlightedRow;
        moveHighlight(step);
    }
}

void MenuTracking::highlightFromEdge(int step) {
    if (!session_) return;
    surfaceAt(session_->surfaces.size() - 1).highlightedRow.reset();
    moveHighlight(step);
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
