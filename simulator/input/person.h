#pragma once

#include "applications/press_targets.h"
#include "input/devices.h"
#include "input/typing.h"
#include "input/view_drag.h"
#include "platform/event_monitors.h"
#include "views/view_queries.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace mac_model {

/// Whose press it is. Both have the one pointer and the one left button: while a posted press holds it, a
/// press of the person's begins nothing, and the person's release is that of the posted press. A posted
/// release doesn't lift the person's finger, and what a posted press has begun goes on when the person moves.
enum class PressedBy { Person, PostedEvents };

/// The person in front of the Mac: one pointer, its buttons, a keyboard. The person's input reaches surfaces
/// from front to back, then the menu bar, then the desktop; its effects in the program happen when the main
/// loop turns. Posted events press and move in the same way.
class Person {
  public:
    Person(VirtualScheduler& scheduler, Devices& devices, const PressTargets& reach, Typing& typing)
        : devices_(devices)
        , reach_(reach)
        , typing_(typing)
        , person_(reach.surfaces, devices.pointer, scheduler)
        , postedEvents_(reach.surfaces, devices.pointer, scheduler) {}

    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    void moveTo(Point, PressedBy = PressedBy::Person);
    void press(MouseButton, const std::vector<Modifier>&, PressedBy = PressedBy::Person);
    void release(MouseButton, PressedBy = PressedBy::Person);
    /// Forgets what is held, as if it had not been pressed; the buttons stay as they are.
    void makeDisplayActive();
    void letGoOfAll(PressedBy);
    /// The left button is up, whoever has pressed it.
    void liftLeftButton();

    /// See `Typing`; Escape first ends the drag of a view.
    bool pressKey(std::string_view key, const std::vector<Modifier>&);

    /// Positive shows what lies further up. False when nothing under the pointer scrolls.
    bool scroll(const tavrin::ScrollSample&);

  private:
    struct HeldControl {
        SurfaceIdentifier surface;
        ViewPath path;
        std::size_t kind; // its index among the kinds: a view of another kind there was not pressed
    };

    struct HeldCloseButton {
        SurfaceIdentifier surface;
    };

    struct HeldTitleBar {
        SurfaceIdentifier surface;
        Point grip; // from the window's corner to the pointer
    };

    struct HeldItem {
        StatusItemIdentifier item;
        bool withControl = false;  // which makes a left press a right one
        bool isBlindClick = false; // it reaches the owner wherever the pointer is by then
    };

    /// An item pressed with Command, which moves once the pointer has.
    struct HeldPlace {
        StatusItemIdentifier item;
        Point pressedAt;
        double offset = 0; // from the item's left edge to the pointer
        bool isCarried = false;
    };

    using Held =
        std::variant<std::monostate, HeldControl, HeldCloseButton, HeldTitleBar, HeldItem, HeldPlace>;

    /// A button that is down, with what it holds.
    struct Hand {
        Hand(SurfaceStack& stack, const Pointer& pointer, VirtualScheduler& scheduler)
            : viewDrag(stack, pointer, scheduler) {}

        Held held;
        ViewDrag viewDrag;
        bool holdsLeftButton = false;
    };

    enum class MenuPress { GoesOn, Taken };

    bool joinsPostedPress(MouseButton button, PressedBy by) const {
        return button == MouseButton::Left && by == PressedBy::Person && postedEvents_.holdsLeftButton;
    }

    Hand& handOf(PressedBy by) { return by == PressedBy::Person ? person_ : postedEvents_; }

    void tell(tavrin::WatchedEventType, std::optional<tavrin::ScrollSample> = std::nullopt);
    ProcessIdentifier receiverHere() const;
    void moveOverMenu(Point);
    MenuPress pressWithOpenMenu();
    void pressSurface(Hand&, Surface&, MouseButton);
    void bringForward(const Surface& alert);
    Held pressControl(const Surface&, const ViewPath&);
    Held pressMenuBarOrDesktop(MouseButton, const std::vector<Modifier>&,
                               const std::vector<StatusItemIdentifier>&, PressedBy);
    Held pressItem(const StatusItemRecord&, const std::vector<Modifier>&,
                   const std::vector<StatusItemIdentifier>&, PressedBy);
    Held pressPlace(const StatusItemRecord&, PressedBy);
    void openContextMenu(const Surface&);
    void moveWindow(const HeldTitleBar&);
    void letGo(const HeldControl&);
    void letGo(const HeldCloseButton&);
    void letGo(const HeldItem&, MouseButton);
    void letGo(const HeldPlace&);
    void carry(Hand&, HeldPlace&);
    bool isCarrying(const HeldPlace&) const;
    bool isOnMenuBar(Point) const;

    Point at() const { return devices_.pointer.at; }

    Devices& devices_;
    PressTargets reach_;
    Typing& typing_;
    Hand person_;
    Hand postedEvents_;
    ProcessIdentifier receiver_ = 0; // of the last event
};

} // namespace mac_model
