#pragma once

#include "concurrency/task.h"
#include "discovery/menu_bar_item.h"
#include "discovery/menu_bar_item_reader.h"
#include "gestures/window_server_status_item_bridge.h"
#include "movement/menu_bar_move_geometry.h"
#include "platform/events.h"

#include <optional>

namespace tavrin {

class Accessibility;

enum class MenuBarMoveResult {
    eventsPosted,
    alreadyPlaced,
    accessibilityDenied,
    itemUnavailable,
    itemOffscreen,
    blockedByNotch,
    invalidGeometry,
    eventCreationFailed, // also when the move was cancelled
    userPressed,         // while the item was being dragged
};

/// Moves other applications' items as a person does: by a drag with the Command key held. It never looks
/// whether the drag had an effect; its caller does. The gestures say what they leave behind. Only one move
/// runs at a time, because there is one pointer.
class MenuBarItemMover {
  public:
    /// How far inside the status lane an item must lie, and how far from the edges it is grabbed. Points.
    static constexpr double laneInset = 1;
    static constexpr double grabInset = 2;

    MenuBarItemMover(Events& events, Accessibility& accessibility, MenuBarItemReader& reader,
                     WindowServerStatusItemBridge& bridge)
        : events_(events)
        , accessibility_(accessibility)
        , reader_(reader)
        , bridge_(bridge) {}

    Task<MenuBarMoveResult> move(MenuBarItemSnapshot item, MenuBarZone target, MenuBarMoveGeometry geometry);

  private:
    using RouteResult = WindowServerStatusItemBridge::EventResult;

    /// One item on its way, and the facts found out about it.
    struct Move {
        ProcessIdentifier process;
        Rect frame;
        MenuBarZone target;
        MenuBarMoveGeometry geometry;
        double destinationX;
        bool isFullyVisible;
    };

    static std::optional<MenuBarMoveResult> outcomeWithoutMoving(const Move& move);

    Task<MenuBarMoveResult> perform(Move move);
    Task<MenuBarMoveResult> performDrag(Move move);
    /// None when there is no anchor to move the item to.
    Task<std::optional<RouteResult>> moveByWindow(Move move);

    Events& events_;
    Accessibility& accessibility_;
    MenuBarItemReader& reader_;
    WindowServerStatusItemBridge& bridge_;
};

} // namespace tavrin
