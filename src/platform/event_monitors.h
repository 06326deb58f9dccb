#pragma once

#include "base/geometry.h"
#include "concurrency/signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace tavrin {

/// Values of NSEvent.EventType.
enum class WatchedEventType : std::uint32_t {
    LeftDown = 1,
    RightDown = 3,
    Moved = 5,
    LeftDragged = 6,
    Scroll = 22,
};

/// A set of event types, in the bits of NSEvent.EventTypeMask.
using EventMask = std::uint64_t;

template <class... Types>
constexpr EventMask eventMask(Types... types) {
    return ((EventMask{1} << std::to_underlying(types)) | ...);
}

/// Values of NSEvent.Phase.
enum class ScrollPhase : std::uint32_t {
    None = 0,
    Began = 1,
    Stationary = 2,
    Changed = 4,
    Ended = 8,
    Cancelled = 16,
    MayBegin = 32,
};

/// A step of scrolling.
struct ScrollSample {
    ScrollPhase phase = ScrollPhase::None;
    bool isMomentum = false; // goes on by itself, after the fingers have left
    bool isPrecise = false;  // of a trackpad, in points; a wheel's steps are in lines
    double deltaX = 0;
    double deltaY = 0;
    bool isDirectionInverted = false; // what lies on the screen follows the fingers

    bool operator==(const ScrollSample&) const = default;
};

struct WatchedEvent {
    WatchedEventType type = WatchedEventType::Moved;
    Point location;                     // the pointer's
    std::optional<ScrollSample> scroll; // of a scroll alone

    bool operator==(const WatchedEvent&) const = default;
};

/// Copies of the person's events that go to other programs, wherever they happen. Those for this program's
/// own windows, menus and items aren't among them. Copies come late rather than hold an event up.
class EventMonitors {
  public:
    virtual ~EventMonitors() = default;

    /// Calls `handler` after each event of these types until the subscription goes. While the pointer moves
    /// that is a hundred times a second, so it is for times when something depends on it.
    virtual Subscription watch(EventMask events, std::function<void(const WatchedEvent&)> handler) = 0;

    /// Where the pointer is at this moment.
    virtual Point pointerLocation() const = 0;
};

} // namespace tavrin
