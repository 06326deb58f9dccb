#pragma once

#include "base/geometry.h"
#include "discovery/menu_bar_item.h"
#include "platform/screens.h"

#include <optional>
#include <span>
#include <vector>

namespace tavrin {

/// The menu bar as one move finds it. An item is hidden left of the boundary and visible right of it.
struct MenuBarMoveGeometry {
    Rect controlFrame;
    double glyphWidth = 0; // of what is drawn at the control's right end
    /// An item that is wholly visible, beside the control; what is moved into view can be put next to it.
    std::optional<Rect> visibleNeighborAccessibilityFrame;
    std::vector<Screen> screens;
    std::optional<Rect> spacerFrame; // none where no spacer hides

    Rect glyphFrame() const;
    double boundaryX() const;

    bool operator==(const MenuBarMoveGeometry&) const = default;
};

/// The arithmetic of moves.
namespace MenuBarMove {

/// The screen with the greatest part of the item in its menu bar, visible or behind the notch.
std::optional<Screen> menuBarScreen(const Rect& itemFrame, std::span<const Screen> screens);

/// The middle of the widest part of the item that is on the screen and beside its notch, `inset` points or
/// more from all edges of that part; none when every part is too small for that.
std::optional<Point> safeMenuBarGrabPoint(const Rect& itemFrame, const Screen& screen, double inset);

/// The x at which the pointer lets go of an item of this width.
double destinationX(double itemWidth, MenuBarZone target, const MenuBarMoveGeometry& geometry);

/// Whether a drag can go straight from x to x: the camera notch swallows one that crosses it.
bool pathAvoidsNotch(double grabX, double destinationX, const Screen& screen);

/// The frame beside which an item is put when events go to its window; none when there is nothing to put it
/// beside, or no screen.
std::optional<Rect> windowRouteAnchor(MenuBarZone target, const MenuBarMoveGeometry& geometry);

/// Of the frames of visible items, the one nearest to the control that is wholly visible right of its glyph.
std::optional<Rect> visibleNeighbor(std::span<const Rect> visibleItems, const Rect& glyph,
                                    std::span<const Screen> screens);

} // namespace MenuBarMove

} // namespace tavrin
