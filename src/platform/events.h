#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "platform/accessibility.h"
#include "platform/keyboard.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace tavrin {

// The values in this header are those of CoreGraphics' CGEventTypes.h, unless another origin is named.

enum class MouseEventType : std::uint32_t {
    LeftDown = 1,
    LeftUp = 2,
    Moved = 5,
    LeftDragged = 6,
};

/// A set of modifier flags, of which the program uses one.
using EventFlags = std::uint64_t;
inline constexpr EventFlags noEventFlags = 0;
inline constexpr EventFlags commandEventFlag = 0x100000;

/// Integer fields of a mouse event.
enum class EventField : std::uint32_t {
    EventNumber = 0, // ties a press to its drags and its release
    DeltaX = 4,      // points moved since the event before
    DeltaY = 5,
    TargetProcess = 40,
    WindowNumber = 51, // in no header; seen in the events of a real mouse
    WindowUnderPointer = 91,
    WindowThatCanHandle = 92,
};

/// Where a posted event enters the system: with the hardware's events, or with those of the login session.
enum class EventTap : std::uint32_t { Hid = 0, Session = 1 };

enum class EventSourceState : std::int32_t { HidSystem = 1 };

/// When the system holds back the user's own events because of synthetic ones.
enum class EventSuppressionState : std::uint32_t {
    SuppressionInterval = 0, // for a while after each synthetic event
    RemoteMouseDrag = 1,     // while a synthetic drag is in progress
};

/// Which of the user's own events get through all the same: mouse (1), keyboard (2) and system-defined (4).
using EventFilter = std::uint32_t;
inline constexpr EventFilter allLocalEvents = 7;

struct EventSourceSettings {
    EventSourceState state = EventSourceState::HidSystem;
    std::optional<Seconds> localEventsSuppressionInterval;
    std::map<EventSuppressionState, EventFilter> localEventsFilter;

    bool operator==(const EventSourceSettings&) const = default;
};

/// A source made by `Events::createSource`.
class EventSource {
  public:
    explicit EventSource(EventSourceSettings settings) : settings_(std::move(settings)) {}

    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    virtual ~EventSource() = default;

    const EventSourceSettings& settings() const { return settings_; }

  private:
    EventSourceSettings settings_;
};

/// The properties that make up an event of the left mouse button.
struct MouseEvent {
    MouseEventType type = MouseEventType::Moved;
    Point location;
    /// Always set as given: an event would otherwise take over the modifier keys that the user holds.
    EventFlags flags = noEventFlags;
    std::optional<std::int64_t> clickState; // the system's own choice when absent
    std::map<EventField, std::int64_t> fields;
    std::shared_ptr<const EventSource> source; // none: the event has no source

    bool operator==(const MouseEvent&) const = default;
};

/// An event made by `Events::create` and ready to be posted, as often as one likes.
class PreparedEvent {
  public:
    explicit PreparedEvent(MouseEvent value) : value_(std::move(value)) {}

    PreparedEvent(const PreparedEvent&) = delete;
    PreparedEvent& operator=(const PreparedEvent&) = delete;
    virtual ~PreparedEvent() = default;

    /// As it was asked for.
    const MouseEvent& value() const { return value_; }

    /// The same properties as the system's own event has them now.
    virtual MouseEvent readBack() const { return value_; }

  private:
    MouseEvent value_;
};

inline constexpr KeyCode escapeKeyCode = 53;

enum class KeyMotion { Down, Up };

/// A key of the keyboard, with no modifier key held.
struct KeyEvent {
    KeyCode keyCode = 0;
    KeyMotion motion = KeyMotion::Down;

    bool operator==(const KeyEvent&) const = default;
};

/// Synthetic mouse and keyboard events and the pointer. Posting needs the user's consent to Accessibility;
/// without it events vanish silently. Nothing here waits or blocks.
class Events {
  public:
    virtual ~Events() = default;

    /// Null when the system makes no source.
    virtual std::shared_ptr<const EventSource> createSource(const EventSourceSettings& settings) = 0;

    /// Null when the event could not be made.
    virtual std::unique_ptr<PreparedEvent> create(const MouseEvent& event) = 0;

    /// Events that enter at a tap move the pointer to their location and reach whatever lies there.
    virtual void post(const PreparedEvent& event, EventTap tap) = 0;

    /// Gives the event to one process alone; the pointer stays.
    virtual void postToProcess(const PreparedEvent& event, ProcessIdentifier process) = 0;

    /// Gives a key to one process, whoever has the keyboard; false when the event could not be made.
    virtual bool postKeyToProcess(const KeyEvent& event, ProcessIdentifier process) = 0;

    /// Whether posted events arrive ("CGPreflightPostEventAccess").
    virtual bool mayPost() const = 0;

    /// Puts the pointer elsewhere without an event: what lies there doesn't learn of it, and for a moment
    /// macOS may hold back the user's own moves. Needs no consent.
    virtual void warpPointer(Point location) = 0;

    /// Where the pointer is, as a fresh empty event tells; none when that event could not be made.
    virtual std::optional<Point> pointerLocation() const = 0;

    /// How many events of this type the system has seen since the user logged in.
    virtual std::uint32_t eventCount(MouseEventType type) const = 0;

    /// The system counts hides and shows for each process: the cursor is visible again after as many shows as
    /// hides, and a show without a hide does nothing. The end of the process shows it.
    virtual void hideCursor() = 0;
    virtual void showCursor() = 0;
};

} // namespace tavrin
