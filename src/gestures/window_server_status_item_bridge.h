#pragma once

#include "concurrency/task.h"
#include "platform/events.h"
#include "platform/window_server.h"

#include <cstdint>
#include <expected>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace tavrin {

struct WindowServerMenuBarWindow {
    WindowServerMenuBar::WindowNumber identifier = 0;
    Rect frame;

    bool operator==(const WindowServerMenuBarWindow&) const = default;
};

/// Addresses mouse events to the window of one status item, for the items that react to nothing else. All it
/// knows of windows comes from private functions: whenever one is missing, fails, or leaves it in doubt which
/// window is meant, the bridge says `unavailable` and posts nothing.
class WindowServerStatusItemBridge {
  public:
    enum class EventResult {
        posted,
        unavailable,
        noEventSource, // or no events
        cancelled,
    };

    WindowServerStatusItemBridge(Events& events, WindowServer& windowServer)
        : events_(events)
        , windowServer_(windowServer) {}

    /// The windows of the menu bar that have a size, in the window server's order; empty when it can't tell.
    static std::vector<WindowServerMenuBarWindow> menuBarWindows(WindowServerMenuBar::Functions& functions);

    /// The one window that can be the item with this frame; none when several can.
    static std::optional<WindowServerMenuBarWindow>
    matchingWindow(const Rect& itemAccessibilityFrame, std::span<const WindowServerMenuBarWindow> windows);

    /// Whether the window is where it was when it was listed.
    static bool windowStillMatches(const WindowServerMenuBarWindow& window,
                                   WindowServerMenuBar::Functions& functions);

    /// Clicks the middle of the item.
    Task<EventResult> postClick(ProcessIdentifier processIdentifier, Rect itemAccessibilityFrame);

    /// Command-drags the item over `anchor` to `destination`.
    Task<EventResult> postCommandMove(ProcessIdentifier processIdentifier, Rect sourceAccessibilityFrame,
                                      Rect anchor, Point destination);

  private:
    static constexpr Seconds clickSettleWait{0.05};
    static constexpr Seconds moveHoldWait{0.08};    // the press becomes a drag
    static constexpr Seconds moveArrivalWait{0.18}; // the other items make room
    static constexpr Seconds moveSettleWait{0.5};   // the item slides into its place

    /// A window, and the source of the events for it.
    struct Addressee {
        ProcessIdentifier process;
        WindowServerMenuBar::WindowNumber window;
        std::shared_ptr<const EventSource> source;

        std::map<EventField, std::int64_t> fields() const;
        MouseEvent event(MouseEventType type, Point location) const;
    };

    std::optional<WindowServerMenuBarWindow> findWindow(ProcessIdentifier process, const Rect& frame) const;
    std::expected<Addressee, EventResult> address(ProcessIdentifier process, const Rect& frame) const;

    Events& events_;
    WindowServer& windowServer_;
};

} // namespace tavrin
