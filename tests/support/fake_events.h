#pragma once

#include "concurrency/virtual_scheduler.h"
#include "platform/events.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tavrin {

/// Notes the posted events, with the milliseconds since the first, and their effects on button, cursor and
/// pointer.
class FakeEvents final : public Events {
  public:
    explicit FakeEvents(const VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    std::shared_ptr<const EventSource> createSource(const EventSourceSettings& settings) override {
        return makesSources ? std::make_shared<EventSource>(settings) : nullptr;
    }

    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override {
        if (creationsBeforeFailures == 0) return nullptr;
        if (creationsBeforeFailures > 0) --creationsBeforeFailures;
        return std::make_unique<PreparedEvent>(event);
    }

    void post(const PreparedEvent& event, EventTap tap) override {
        if (!isTrusted) return;
        const auto& value = event.value();
        note((tap == EventTap::Hid ? "hid " : "session ") + text(value));
        pointer = value.location;
        if (value.type == MouseEventType::LeftDown) isButtonDown = true;
        if (value.type == MouseEventType::LeftUp) isButtonDown = false;
        posted.push_back(value);
        if (countsPosted) ++counts[value.type];
        if (onPosted) onPosted(value);
    }

    void postToProcess(const PreparedEvent& event, ProcessIdentifier process) override {
        if (!isTrusted) return;
        note(std::to_string(process) + " " + text(event.value()));
    }

    bool postKeyToProcess(const KeyEvent& event, ProcessIdentifier process) override {
        if (isTrusted)
            note(std::to_string(process) + " key " + std::to_string(event.keyCode) +
                 (event.motion == KeyMotion::Down ? " down" : " up"));
        return true;
    }

    bool mayPost() const override { return isTrusted; }

    void warpPointer(Point location) override {
        note("warp " + std::to_string(std::lround(location.x)) + "," +
             std::to_string(std::lround(location.y)));
        pointer = location;
    }

    std::optional<Point> pointerLocation() const override { return pointer; }

    std::uint32_t eventCount(MouseEventType type) const override {
        const auto found = counts.find(type);
        return 41 + (found == counts.end() ? 0 : found->second);
    }

    void hideCursor() override {
        ++hides;
        note("hide");
    }

    void showCursor() override {
        --hides;
        note("show");
    }

    /// No button down, the cursor visible, the pointer where it was.
    bool isAtRest() const { return !isButtonDown && hides == 0 && pointer == home; }

    std::vector<MouseEvent> posted;
    std::vector<std::string> log;
    std::map<MouseEventType, std::uint32_t> counts; // of events that were posted here, or that a test adds
    bool countsPosted = true;
    std::function<void(const MouseEvent&)> onPosted;
    static constexpr Point home{300, 400};
    Point pointer = home;
    bool isButtonDown = false;
    int hides = 0;
    bool makesSources = true;
    bool isTrusted = true;
    int creationsBeforeFailures = -1; // none fail

  private:
    void note(const std::string& what) {
        if (log.empty()) start_ = scheduler_.now();
        const auto milliseconds = std::lround((scheduler_.now() - start_).count() * 1000);
        log.push_back(std::to_string(milliseconds) + " " + what);
    }

    static std::string text(const MouseEvent& event) {
        static const std::map<MouseEventType, std::string> names{{MouseEventType::LeftDown, "down"},
                                                                 {MouseEventType::LeftUp, "up"},
                                                                 {MouseEventType::Moved, "moved"},
                                                                 {MouseEventType::LeftDragged, "dragged"}};
        return names.at(event.type) + (event.flags == commandEventFlag ? " cmd " : " ") +
               std::to_string(std::lround(event.location.x)) + "," +
               std::to_string(std::lround(event.location.y));
    }

    const VirtualScheduler& scheduler_;
    Seconds start_{0};
};

/// Runs `attempt` as often as it has waits, and cancels it in one after the other: `attempt` starts a job in
/// a world of its own, `check` looks at that world right after the cancellation. Says how many waits there
/// were.
template <class Attempt, class Check>
int cancelAtEveryWait(VirtualScheduler& scheduler, const Attempt& attempt, const Check& check) {
    for (int waits = 0; waits < 500; ++waits) {
        auto job = attempt();
        scheduler.advance(Seconds{0});
        for (int passed = 0; passed < waits && job.isRunning(); ++passed)
            scheduler.advance(*scheduler.nextDue() - scheduler.now());
        if (!job.isRunning()) return waits;
        job.cancel();
        check(waits);
    }
    return -1;
}

} // namespace tavrin
