#pragma once

#include "applications/press_targets.h"
#include "input/event_numbers.h"
#include "menu_bar/windows.h"
#include "platform/events.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <optional>

namespace mac_model {

/// Synthetic events that name the window of a status item: they reach that item wherever it stands.
class WindowInput {
  public:
    WindowInput(const PressTargets& reach, const MenuBarWindows& windows, const EventNumbers& numbers)
        : reach_(reach)
        , windows_(windows)
        , numbers_(numbers) {}

    WindowInput(const WindowInput&) = delete;
    WindowInput& operator=(const WindowInput&) = delete;

    /// The event is ignored when it was posted to another process than the item's.
    void give(const MouseEvent&, std::optional<ProcessIdentifier> postedTo);
    void abandonDrag();

  private:
    struct Press {
        StatusItemIdentifier item{};
        std::int64_t number = 0; // of the press event; 0 when later events must be ignored
        Point pressedAt;
        double offset = 0; // from the item's left edge to where it was pressed
        bool isCommand = false;
        bool isCarried = false;
    };

    void press(const StatusItemRecord&, const MouseEvent&);
    void drag(const MouseEvent&);
    void release(const MouseEvent&);
    bool isCarrying() const;

    PressTargets reach_;
    const MenuBarWindows& windows_;
    const EventNumbers& numbers_;
    std::optional<Press> press_;
};

} // namespace mac_model
