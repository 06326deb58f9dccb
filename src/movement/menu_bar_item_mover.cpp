#include "movement/menu_bar_item_mover.h"

#include "concurrency/waits.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "gestures/pointer_gesture.h"
#include "platform/accessibility.h"

#include <utility>

namespace tavrin {

Task<bool> MenuBarItemMover::sleepUnlessCancelled(Seconds duration) {
    co_return co_await sleepFor(duration) == Wake::Due;
}

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
        const auto drag = co_await postCommandDrag(*grab, {x, move.frame.midY()}, UsesHostedMenuBar::No);
        co_return drag == MenuBarCommandDragResult::posted ? MenuBarMoveResult::eventsPosted
                                                           : MenuBarMoveResult::eventCreationFailed;
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

std::shared_ptr<const EventSource> MenuBarItemMover::hostedSource() {
    return events_.createSource(
        {.state = EventSourceState::HidSystem,
         .localEventsSuppressionInterval = Seconds{0},
         .localEventsFilter = {{EventSuppressionState::RemoteMouseDrag, allLocalEvents}}});
}

MouseEvent MenuBarItemMover::CommandDrag::event(MouseEventType type, Point location) const {
    return {.type = type,
            .location = location,
            .flags = type == MouseEventType::Moved ? noEventFlags : commandEventFlag,
            .clickState = {},
            .fields = {},
            .source = source};
}

Task<MenuBarCommandDragResult> MenuBarItemMover::postCommandDrag(Point from, Point to,
                                                                 UsesHostedMenuBar usesHostedMenuBar) {
    using enum MenuBarCommandDragResult;
    if (co_await isCancelled()) co_return cancelled;
    CommandDrag drag{from, to, nullptr};
    if (usesHostedMenuBar == UsesHostedMenuBar::Yes) {
        drag.source = hostedSource();
        if (!drag.source) co_return eventCreationFailed;
    }
    const Gesture gesture = PointerGesture::create(events_, drag.event(MouseEventType::LeftUp, to),
                                                   {.tap = EventTap::Hid, .process = {}});
    if (!gesture) co_return eventCreationFailed;
    const auto result = co_await press(gesture, drag);
    if (result != posted) co_return result;
    co_return co_await dragAndRelease(gesture, drag);
}

Task<MenuBarCommandDragResult> MenuBarItemMover::press(Gesture gesture, CommandDrag drag) {
    using enum MenuBarCommandDragResult;
    const auto moved = gesture->make(drag.event(MouseEventType::Moved, drag.from));
    const auto down = gesture->make(drag.event(MouseEventType::LeftDown, drag.from));
    if (!moved || !down) co_return eventCreationFailed;
    gesture->post(*moved);
    if (!co_await sleepUnlessCancelled(arrivalWait)) co_return cancelled;
    gesture->hideCursor();
    gesture->post(*down);
    co_return co_await sleepUnlessCancelled(pressWait) ? posted : cancelled;
}

Task<MenuBarCommandDragResult> MenuBarItemMover::dragAndRelease(Gesture gesture, CommandDrag drag) {
    using enum MenuBarCommandDragResult;
    const int steps = MenuBarMove::stepCount(drag.from, drag.to);
    for (int step = 1; step <= steps; ++step) {
        const auto place = MenuBarMove::stepPoint(drag.from, drag.to, step, steps);
        if (!gesture->post(drag.event(MouseEventType::LeftDragged, place))) co_return eventCreationFailed;
        if (!co_await sleepUnlessCancelled(stepWait)) co_return cancelled;
    }
    gesture->release();
    // Cut short or not: the drag is complete.
    (void)co_await sleepUnlessCancelled(releaseWait);
    co_return posted;
}

} // namespace tavrin
