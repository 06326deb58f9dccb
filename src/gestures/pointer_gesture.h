#pragma once

#include "platform/events.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tavrin {

/// A gesture with the left mouse button, made of synthetic events, that leaves nothing behind. When it goes,
/// whether it was finished or its job was cut short in one of its waits, these hold, in this order:
///  1. a button that it pressed is up, released at the place of its last event;
///  2. a cursor that it hid is visible;
///  3. the pointer is where the user had it, if the gesture posted anything.
/// When the user has taken Accessibility away meanwhile, the release is lost; the click that did so has
/// released the button.
/// None of that waits, as a cancelled job can't.
class PointerGesture {
  public:
    struct Delivery {
        EventTap tap = EventTap::Hid;
        std::optional<ProcessIdentifier>
            process; // which gets each event, too, but for the last restoring one
    };

    /// `release` is the mouse-up that ends the gesture. Null, with nothing posted, when the pointer can't be
    /// found or an event that is needed to end the gesture can't be made.
    static std::unique_ptr<PointerGesture> create(Events& events, MouseEvent release, Delivery delivery);

    PointerGesture(const PointerGesture&) = delete;
    PointerGesture& operator=(const PointerGesture&) = delete;
    ~PointerGesture();

    /// Null when the event could not be made.
    std::unique_ptr<PreparedEvent> make(MouseEvent event) const;

    void post(const PreparedEvent& event);

    /// Makes and posts; false when the event could not be made.
    [[nodiscard]] bool post(MouseEvent event);

    void hideCursor();

    /// Posts the mouse-up as given to `create`.
    void release();

    /// Call it once the gesture's own press has had time to be counted: from then on the user's are told from
    /// it. Before that only the user's releases are noticed.
    void watchForPresses();

    /// Whether the user has pressed or let go of the button while the gesture holds it. There is one button
    /// to the system: such a press reaches nothing else, and its release puts down what is being dragged.
    bool hasUserPressed() const;

  private:
    struct Ending {
        std::unique_ptr<PreparedEvent> release;
        std::unique_ptr<PreparedEvent> back;
    };

    PointerGesture(Events& events, Delivery delivery, Point start, std::int64_t eventNumber)
        : events_(events)
        , delivery_(delivery)
        , last_(start)
        , eventNumber_(eventNumber)
        , releasesBefore_(events.eventCount(MouseEventType::LeftUp)) {}

    void number(MouseEvent& event) const;
    void releaseWhereItIs();
    void putPointerBack();

    Events& events_;
    Delivery delivery_;
    Point last_;
    std::int64_t eventNumber_;
    std::uint32_t releasesBefore_;
    std::optional<std::int64_t> pressesExpected_; // as counted by the system
    Ending ending_;
    bool isButtonDown_ = false;
    bool isCursorHidden_ = false;
    bool hasPosted_ = false;
};

} // namespace tavrin
