#pragma once

#include "concurrency/task.h"
#include "discovery/menu_bar_item.h"
#include "discovery/menu_bar_item_reader.h"
#include "gestures/window_server_status_item_bridge.h"
#include "movement/menu_bar_move_geometry.h"
#include "platform/events.h"

#include <memory>
#include <optional>

namespace tavrin {

class Accessibility;
class PointerGesture;

enum class MenuBarCommandDragResult { posted, cancelled, eventCreationFailed };

enum class MenuBarMoveResult {
    eventsPosted,
    alreadyPlaced,
    accessibilityDenied,
    itemUnavailable,
    itemOffscreen,
    blockedByNotch,
    invalidGeometry,
    eventCreationFailed, // also when the move was cancelled
};

enum class UsesHostedMenuBar { No, Yes };

/// Moves other applications' items as a person does: by a drag with the Command key held. It never looks
/// whether the drag had an effect; that is the caller's. A drag that was begun always ends with the button
/// up, the cursor visible and the pointer back in its place, also when it is cancelled. One at a time: there
/// is one pointer. Main thread.
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

    Task<MenuBarCommandDragResult> postCommandDrag(Point from, Point to, UsesHostedMenuBar usesHostedMenuBar);

    /// False when the job was cancelled before the end.
    static Task<bool> sleepUnlessCancelled(Seconds duration);

  private:
    using RouteResult = WindowServerStatusItemBridge::EventResult;

    // macOS takes the events for a Command-drag only at a person's pace.
    static constexpr Seconds arrivalWait{0.06};
    static constexpr Seconds pressWait{0.08};
    static constexpr Seconds stepWait{0.015};
    static constexpr Seconds releaseWait{0.18};

    /// One item on its way, with all that was found out about it.
    struct Move {
        ProcessIdentifier process;
        Rect frame;
        MenuBarZone target;
        MenuBarMoveGeometry geometry;
        double destinationX;
        bool isFullyVisible;
    };

    struct CommandDrag {
        Point from;
        Point to;
        std::shared_ptr<const EventSource> source;

        MouseEvent event(MouseEventType type, Point location) const;
    };

    /// Tidies up behind itself when the last of the job's frames has gone.
    using Gesture = std::shared_ptr<PointerGesture>;

    static std::optional<MenuBarMoveResult> outcomeWithoutMoving(const Move& move);

    Task<MenuBarMoveResult> perform(Move move);
    Task<MenuBarMoveResult> performDrag(Move move);
    /// None when there is no anchor to move the item to.
    Task<std::optional<RouteResult>> moveByWindow(Move move);
    std::shared_ptr<const EventSource> hostedSource();
    /// `posted` when the item is held.
    static Task<MenuBarCommandDragResult> press(Gesture gesture, CommandDrag drag);
    static Task<MenuBarCommandDragResult> dragAndRelease(Gesture gesture, CommandDrag drag);

    Events& events_;
    Accessibility& accessibility_;
    MenuBarItemReader& reader_;
    WindowServerStatusItemBridge& bridge_;
};

} // namespace tavrin
