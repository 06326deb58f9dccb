#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "input/pointer.h"
#include "platform/accessibility.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mac_model {

/// An input event that a process posted, a change of the cursor ("cursorHide", "cursorShow") that it made, or
/// the alert sound ("beep"), or what it has assistive technology say ("announcement").
struct SyntheticEvent {
    Seconds time{0};
    std::string type;
    std::string tap;                                    // where it entered; empty when posted to a process
    std::optional<ProcessIdentifier> processIdentifier; // that it was posted to
    std::optional<Point> at;
    std::uint64_t flags = 0;            // CGEventFlags
    std::map<int, std::int64_t> fields; // CGEventField
    int clickState = 0;
    std::string text; // of an announcement
};

/// Everything that processes did to the input of this Mac, oldest first.
class EventLog {
  public:
    void record(SyntheticEvent event) {
        events_.push_back(std::move(event));
        onRecorded.emit(events_.back());
    }

    /// The events since the last call.
    std::vector<SyntheticEvent> drain() { return std::exchange(events_, {}); }

    Signal<SyntheticEvent> onRecorded;

  private:
    std::vector<SyntheticEvent> events_;
};

/// The cursor that processes hide and show. Hides are counted: as many shows bring it back.
class Cursor {
  public:
    Cursor(Pointer& pointer, EventLog& log) : pointer_(pointer), log_(log) {}

    void hide(Seconds now) { change(now, "cursorHide", hides_ + 1); }

    void show(Seconds now) { change(now, "cursorShow", hides_ > 0 ? hides_ - 1 : 0); }

    /// macOS heeds the hides only while their process is the active one. They count meanwhile.
    void setOwnerActive(bool isActive) {
        isOwnerActive_ = isActive;
        refresh();
    }

    /// The process that hid the cursor has ended; its hides end with it.
    void ownerEnded() {
        hides_ = 0;
        refresh();
    }

  private:
    void refresh() { pointer_.isVisible = hides_ == 0 || !isOwnerActive_; }

    void change(Seconds now, std::string type, int hides) {
        hides_ = hides;
        refresh();
        SyntheticEvent event;
        event.time = now;
        event.type = std::move(type);
        log_.record(std::move(event));
    }

    Pointer& pointer_;
    EventLog& log_;
    int hides_ = 0;
    bool isOwnerActive_ = false;
};

} // namespace mac_model
