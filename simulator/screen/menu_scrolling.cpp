#include "screen/menu_scrolling.h"

#include <algorithm>

namespace mac_model {

namespace {

constexpr double arrowHeight = 22;
constexpr double scrollStep = 11; // half a row

double heightOfTopArrow(const Surface& menu) { return menu.rowsOffset > 0 ? arrowHeight : 0; }

double heightOfBottomArrow(const Surface& menu) {
    return menu.rowsOffset < menu.rowsOffsetMax ? arrowHeight : 0;
}

} // namespace

Rect shownRows(const Surface& menu) {
    const double top = heightOfTopArrow(menu);
    const double height = menu.frame.height - top - heightOfBottomArrow(menu);
    return {menu.frame.x, menu.frame.y + top, menu.frame.width, std::max(0.0, height)};
}

double heightOfPage(const Surface& menu) { return std::max(0.0, menu.frame.height - 2 * arrowHeight); }

void scrollRowsTo(Surface& menu, double offset) {
    offset = std::clamp(offset, 0.0, menu.rowsOffsetMax);
    for (auto& row : menu.rows) row.frame.y += menu.rowsOffset - offset;
    menu.rowsOffset = offset;
}

void revealRow(Surface& menu, std::size_t row) {
    const auto& frame = menu.rows[row].frame;
    const double above = menu.frame.minY() + arrowHeight - frame.minY();
    const double below = frame.maxY() - (menu.frame.maxY() - arrowHeight);
    if (frame.minY() < shownRows(menu).minY())
        scrollRowsTo(menu, menu.rowsOffset - above);
    else if (frame.maxY() > shownRows(menu).maxY())
        scrollRowsTo(menu, menu.rowsOffset + below);
}

double scrollStepAt(const Surface& menu, Point point) {
    if (!menu.frame.contains(point)) return 0;
    if (point.y < menu.frame.minY() + heightOfTopArrow(menu)) return -scrollStep;
    return point.y >= menu.frame.maxY() - heightOfBottomArrow(menu) ? scrollStep : 0;
}

} // namespace mac_model
