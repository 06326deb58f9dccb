#include "concurrency/waits.h"
#include "platform/event_monitors.h"
#include "platform/events.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

/// A person who moves the mouse meanwhile is no fault of the system, so the checks try a few times.
constexpr int tries = 4;

bool isNear(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y) <= 1; }

Verdict pointerIsToldAlike(const Platform& platform) {
    std::string seen = "No event could be made to tell it.";
    for (int n = 0; n < tries; ++n) {
        const auto byEvent = platform.events.pointerLocation();
        const auto byMonitors = platform.eventMonitors.pointerLocation();
        if (byEvent && isNear(*byEvent, byMonitors)) return passed("It is at " + said(byMonitors) + ".");
        if (byEvent) seen = "It is at " + said(*byEvent) + " and at " + said(byMonitors) + ".";
    }
    return failed(seen);
}

/// Posts a move to where the pointer is; none when that can't be.
std::optional<Point> moveInPlace(const Platform& platform) {
    auto& events = platform.events;
    const auto at = events.pointerLocation();
    MouseEvent event;
    event.location = at.value_or(Point{});
    const auto move = at ? events.create(event) : nullptr;
    if (move) events.post(*move, EventTap::Hid);
    return move ? at : std::nullopt;
}

struct Copies {
    int count = 0;
    Point last;
};

Task<Verdict> movesAreCopied(Platform platform) {
    if (!platform.events.mayPost()) co_return skipped("Accessibility is not allowed.");
    const auto copies = std::make_shared<Copies>();
    auto watch =
        platform.eventMonitors.watch(eventMask(WatchedEventType::Moved), [copies](const auto& event) {
            ++copies->count;
            copies->last = event.location;
        });
    std::optional<Point> at;
    for (int n = 0; n < tries && copies->count == 0; ++n) {
        at = moveInPlace(platform);
        (void)co_await comesTrue(platform, [copies] { return copies->count > 0; }, 500ms);
    }
    const auto watched = copies->count;
    const bool isPlaced = at && isNear(copies->last, *at);
    watch = {};
    (void)moveInPlace(platform);
    (void)co_await sleepFor(300ms);
    Findings findings;
    findings.expect(watched > 0, "no copy came");
    findings.expect(watched == 0 || isPlaced, "a copy tells of " + said(copies->last));
    findings.expect(copies->count == watched, "a copy came after the watch had ended");
    co_return findings.verdict("A move was copied, and none after the watch had ended.");
}

} // namespace

std::vector<Check> eventMonitorsChecks() {
    constexpr auto family = "event monitors";
    return {
        reads(family, "Events and monitors tell the same place of the pointer.", pointerIsToldAlike),
        changes(family, "A move over another program is copied while it is watched for.", movesAreCopied),
    };
}

} // namespace tavrin::seam_check
