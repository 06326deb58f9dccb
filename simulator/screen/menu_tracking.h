#pragma once

#include "concurrency/signal.h"
#include "screen/surface_stack.h"
#include "system/screens_model.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// The status item or title that a menu opened from: pressing it again closes the menu.
struct MenuAnchor {
    StatusItemIdentifier item = StatusItemIdentifier::None;
    std::optional<std::size_t> title; // in the menu bar

    bool operator==(const MenuAnchor&) const = default;
};

/// Positions of entries from the outermost menu inwards.
using MenuPath = std::vector<std::size_t>;

struct MenuRequest {
    std::vector<MenuItemSpec> items;
    Rect area; // on the screen; the menu opens below it, or at it when it has no size
    ProcessIdentifier owner = 0;
    MenuAnchor anchor;
    std::function<void(const MenuPath&)> onChosen; // after the menu has closed
    std::function<void()> onClosed;
};

/// The one open menu with its submenus. While it is open it takes the mouse and the keyboard.
class MenuTracking {
  public:
    MenuTracking(VirtualScheduler& scheduler, SurfaceStack& stack, ScreensModel& screens)
        : stack_(stack)
        , screens_(screens)
        , world_(scheduler) {}

    MenuTracking(const MenuTracking&) = delete;
    MenuTracking& operator=(const MenuTracking&) = delete;

    /// Closes the menu that is open, if any.
    void open(MenuRequest);
    /// Closes the menu without a choice.
    void close();

    bool isOpen() const { return session_.has_value(); }

    /// The anchor of the open menu; none while no menu is open.
    std::optional<MenuAnchor> anchor() const;

    bool contains(Point) const;
    void pointerMovedTo(Point);
    /// Moves the rows of the menu at the point; positive shows what lies further up. False when they don't go
    /// that way.
    bool scroll(Point, double dy);
    /// Scrolls the open menu until the row is seen.
    void reveal(SurfaceIdentifier menu, std::size_t row);
    /// Chooses the entry at the point, if it can be chosen.
    void releasedAt(Point);

    void choose(const MenuPath&);
    /// Chooses the entry with this key equivalent; false when there is none.
    bool chooseByKey(std::string_view key, const std::vector<Modifier>&);
    /// Moves the highlight to the next entry that can be highlighted, from the edge when none is.
    void moveHighlight(int step);
    /// As many entries further as the menu shows at a time.
    void moveHighlightByPage(int step);
    /// Highlights the first entry going this way: forwards the topmost, backwards the lowest.
    void highlightFromEdge(int step);
    /// Chooses the highlighted entry, or opens its submenu; without one, closes the menu.
    void pickHighlighted();
    /// Opens the submenu of the highlighted entry and highlights its first entry; false when it has none.
    bool openHighlighted();
    void closeInnermost();
    /// Opens the submenu of the entry at this path, and those on the way to it.
    void openSubmenuAt(const MenuPath&);

    /// The process that the open menu belongs to; 0 while none is open.
    ProcessIdentifier owner() const { return session_ ? session_->request.owner : 0; }

    /// The entries whose submenus are open.
    MenuPath openPath() const { return session_ ? session_->path : MenuPath{}; }

    /// After a menu was opened or closed.
    Signal<> onChanged;

    std::vector<SurfaceIdentifier> menus() const; // outermost first

  private:
    struct Session {
        MenuRequest request;
        std::vector<SurfaceIdentifier> surfaces;
        MenuPath path; // of the entries whose submenus are open
        std::optional<Point>
            pressedAt; // by the press that opened it at the pointer; its release chooses nothing
    };

    struct Place {
        std::size_t depth;
        std::size_t row;
    };

    std::optional<std::size_t> depthAt(Point) const;
    std::optional<Place> placeAt(Point) const;
    Surface& surfaceAt(std::size_t depth) const;
    void addSurface(std::vector<MenuItemSpec>, Size, Rect frame);
    void highlight(Place);
    void openSubmenu(Place);
    void closeDeeperThan(std::size_t depth);
    double scrollStep() const;
    void scrollLater();
    void scrollOn();
    bool scrollRows(std::size_t depth, double distance);
    void highlightAtPointer(std::size_t depth);

    SurfaceStack& stack_;
    ScreensModel& screens_;
    WorldCalls world_;
    std::optional<Session> session_;
    Point pointer_; // where it was seen last
    bool isScrollPending_ = false;
};

} // namespace mac_model
