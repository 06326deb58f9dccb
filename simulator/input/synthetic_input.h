#pragma once

#include "applications/press_targets.h"
#include "input/devices.h"
#include "input/event_numbers.h"
#include "input/person.h"
#include "input/posted_events.h"
#include "input/window_input.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <optional>

namespace mac_model {

/// The parts that synthetic events move and press.
struct SyntheticTargets {
    PressTargets reach;
    Devices& devices;
    Person& person;
    WindowInput& windows;
};

/// Delivers synthetic events among the person's own: an event posted to a tap moves the one pointer and
/// reaches whatever lies there; an event that names a window reaches that status item. The purpose of the
/// events isn't known here.
class SyntheticInput {
  public:
    SyntheticInput(VirtualScheduler& scheduler, const SyntheticTargets& targets, const EventNumbers& numbers,
                   const Faults& faults)
        : scheduler_(scheduler)
        , world_(scheduler)
        , reach_(targets.reach)
        , devices_(targets.devices)
        , person_(targets.person)
        , windows_(targets.windows)
        , numbers_(numbers)
        , faults_(faults) {}

    SyntheticInput(const SyntheticInput&) = delete;
    SyntheticInput& operator=(const SyntheticInput&) = delete;

    // They arrive in their order, and never within the call that posts them.

    void post(PostedEvent);
    void post(PostedKey);

    Point pointerLocation() const { return devices_.pointer.at; }

    void warpPointer(Point point) { devices_.pointer.at = onScreen(point); }

    void hideCursor() { devices_.cursor.hide(scheduler_.now()); }

    void showCursor() { devices_.cursor.show(scheduler_.now()); }

    std::uint32_t eventCount(MouseEventType type) const { return devices_.counts.of(type); }

    /// The process may no longer post events.
    void permissionLost();
    void senderEnded();

  private:
    void receive(const PostedEvent&);
    void receive(const PostedKey&);
    void record(const PostedEvent&);
    void enterAtTap(const MouseEvent&);
    void followTap(const MouseEvent&);
    void movePointerOnly(const MouseEvent&);
    void pressAtPointer(const MouseEvent&);
    void dragPointer(const MouseEvent&);
    void releaseAtPointer(const MouseEvent&);
    void nudge();
    void abandonDrags();
    Point onScreen(Point) const;

    VirtualScheduler& scheduler_;
    WorldCalls world_;
    PressTargets reach_;
    Devices& devices_;
    Person& person_;
    WindowInput& windows_;
    const EventNumbers& numbers_;
    const Faults& faults_;
    std::optional<std::int64_t> pressNumber_; // while the program holds the pointer's button
    int nudges_ = 0;
};

} // namespace mac_model
