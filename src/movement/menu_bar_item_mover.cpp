#include "movement/menu_bar_item_mover.h"

#include "concurrency/waits.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "gestures/command_drag.h"
#include "platform/accessibility.h"

#include <utility>

namespace tavrin {

namespace {

MenuBarMoveResult resultOf(GestureResult result) {
    switch (result) {
    case GestureResult::posted:
        return MenuBarMoveResult::eventsPosted;
    case GestureResult::userPressed:
        return MenuBarMoveResult::userPressed;
    case GestureResult::cancelled:
    case GestureResult::noEvents:
        break;
    }
    return MenuBarMoveResult::eventCreationFailed;
}

} // namespace

Task<MenuBarMoveResult> MenuBarItemMover::move(MenuBarItemSnapshot item, MenuBarZone target,
                                               MenuBarMoveGeometry geometry) {
    if (co_await isCancelled()) co_return MenuBarMoveResult::eventCreationFailed;
    if (!accessibility_.isTrusted()) co_return MenuBarMoveResult::accessibilityDenied;
    const auto process = item.processIdentifier;
    const auto frame = co_await reader_.currentFrame(std::move(item));
    if (co_await isCancelled()) co_return MenuBarMoveResult::eventCreationFailed;
    if (!frame) co_return MenuBarMoveResult::itemUnavailable;
    const double destinationX = MenuBarMove::destinationX(frame->width, target, geometry);
    const bool isFullyVisible =
        MenuBarScreenGeometry::isFullyVisibleInStatusLane(*frame, geometry.screens, laneInset);
    Move move{process, *frame, target, std::move(geometry), destinationX, isFullyVisible};
    if (const auto outcome = outcomeWithoutMoving(move)) co_return *outcome;
    co_return co_await perform(std::move(move));
}

std::optional<MenuBarMoveResult> MenuBarItemMover::outcomeWithoutMoving(const Move& move) {
    const bool isToBeVisible = move.target == MenuBarZone::visible;
    const bool isRightOfBoundary = move.frame.midX() >= move.geometry.boundaryX();
    const bool isOutOfSight = isToBeVisible && !move.isFullyVisible;
    if (isRightOfBoundary == isToBeVisible && !isOutOfSight) return MenuBarMoveResult::alreadyPlaced;
    if (move.geometry.controlFrame.width <= 0 || move.geometry.glyphFrame().width <= 0)
        return MenuBarMoveResult::invalidGeometry;
    return std::nullopt;
}

Task<MenuBarMoveResult> MenuBarItemMover::perform(Move move) {
    if (!move.isFullyVisible) {
        const auto result = co_await moveByWindow(move);
        if (result == RouteResult::posted) co_return MenuBarMoveResult::eventsPosted;
        if (result && *result != RouteResult::unavailable) co_return MenuBarMoveResult::eventCreationFailed;
    }
    co_return co_await performDrag(std::move(move));
}

Task<MenuBarMoveResult> MenuBarItemMover::performDrag(Move move) {
    const auto screen = MenuBarMove::menuBarScreen(move.frame, move.geometry.screens);
    if (!screen) co_return MenuBarMoveResult::itemOffscreen;
    const double x = move.destinationX;
    if (!(x >= screen->frame.minX() && x <= screen->frame.maxX()))
        co_return MenuBarMoveResult::invalidGeometry;
    const auto grab = MenuBarMove::safeMenuBarGrabPoint(move.frame, *screen, grabInset);
    if (!grab) co_return MenuBarMoveResult::blockedByNotch;

    if (MenuBarMove::pathAvoidsNotch(grab->x, x, *screen)) {
        co_return resultOf(co_await postCommandDrag(
            events_,
            {.from = *grab, .to = {x, move.frame.midY()}, .usesHostedMenuBar = UsesHostedMenuBar::No}));
    }
    if (!move.isFullyVisible) co_return MenuBarMoveResult::blockedByNotch; // its window was tried before
    const auto result = co_await moveByWindow(std::move(move));
    if (!result || *result == RouteResult::unavailable) co_return MenuBarMoveResult::blockedByNotch;
    co_return *result == RouteResult::posted ? MenuBarMoveResult::eventsPosted
                                             : MenuBarMoveResult::eventCreationFailed;
}

Task<std::optional<MenuBarItemMover::RouteResult>> MenuBarItemMover::moveByWindow(Move move) {
    const auto anchor = MenuBarMove::windowRouteAnchor(move.target, move.geometry);
    if (!anchor) co_return std::nullopt;
    co_return co_await bridge_.postCommandMove(move.process, move.frame, *anchor,
                                               {move.destinationX, anchor->midY()});
}

} // namespace tavrin
