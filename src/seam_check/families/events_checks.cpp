#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/events.h"
#include "platform/screens.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

Verdict pointerIsOnAScreen(const Platform& platform) {
    const auto pointer = platform.events.pointerLocation();
    if (!pointer) return failed("No event could be made to tell it.");
    for (const auto& screen : platform.screens.screens()) {
        auto room = screen.frame; // the pointer may lie on the last edge
        room.width += 1;
        room.height += 1;
        if (room.contains(*pointer)) return passed("It is at " + said(*pointer) + ".");
    }
    return failed(said(*pointer) + " is on no screen.");
}

EventSourceSettings someSettings() {
    EventSourceSettings settings;
    settings.state = EventSourceState::HidSystem;
    settings.localEventsSuppressionInterval = 0s;
    settings.localEventsFilter = {{EventSuppressionState::SuppressionInterval, allLocalEvents},
                                  {EventSuppressionState::RemoteMouseDrag, allLocalEvents}};
    return settings;
}

Verdict sourcesKeepTheirSettings(const Platform& platform) {
    const auto plain = platform.events.createSource({});
    const auto source = platform.events.createSource(someSettings());
    if (!plain || !source) return failed("No source was made.");
    Findings findings;
    findings.expect(plain->settings() == EventSourceSettings{}, "a source without settings has some");
    findings.expect(source->settings() == someSettings(), "a source has other settings");
    return findings.verdict("Two sources were made.");
}

double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

void compare(Findings& findings, const MouseEvent& read, const MouseEvent& wanted) {
    constexpr EventFlags modifierKeys = 0xFF0000; // macOS may add bits of its own beside them
    findings.expect(read.type == wanted.type, "its type is another");
    findings.expect(distance(read.location, wanted.location) < 0.01, "it is at " + said(read.location));
    findings.expect((read.flags & modifierKeys) == (wanted.flags & modifierKeys),
                    "its flags are " + std::to_string(read.flags));
    findings.expect(read.clickState == wanted.clickState, "its click state is another");
    for (const auto& [field, number] : wanted.fields)
        findings.expect(read.fields.at(field) == number,
                        "field " + std::to_string(std::to_underlying(field)) + " holds " +
                            std::to_string(read.fields.at(field)) + " and not " + std::to_string(number));
}

Verdict eventsKeepTheirContent(const Platform& platform) {
    MouseEvent event;
    event.type = MouseEventType::LeftDragged;
    event.location = {10.5, 20.25};
    event.flags = commandEventFlag;
    event.clickState = 1;
    event.fields = {{EventField::EventNumber, 7}, {EventField::DeltaX, -3}, {EventField::WindowNumber, 9}};
    event.source = platform.events.createSource(someSettings());
    const auto prepared = platform.events.create(event);
    if (!prepared) return failed("No event was made.");
    Findings findings;
    findings.expect(prepared->value() == event, "it was made of something else");
    compare(findings, prepared->readBack(), event);
    return findings.verdict("Type, place, flags, click state and fields were read back. Nothing was posted.");
}

Verdict countsNeverFall(const Platform& platform) {
    Findings findings;
    std::string seen = "Counts:";
    for (const auto type : {MouseEventType::LeftDown, MouseEventType::LeftUp, MouseEventType::Moved,
                            MouseEventType::LeftDragged}) {
        const auto before = platform.events.eventCount(type);
        const auto after = platform.events.eventCount(type);
        findings.expect(after >= before && after - before < 1000,
                        "a count went from " + std::to_string(before) + " to " + std::to_string(after));
        seen += " " + std::to_string(after);
    }
    return findings.verdict(seen + ".");
}

MouseEvent movedTo(Point location) {
    MouseEvent event;
    event.location = location;
    return event;
}

/// A person who moves the mouse meanwhile is no fault of the system, so the check tries a few times.
constexpr int tries = 4;

Task<Verdict> movesArrive(Platform platform) {
    auto& events = platform.events;
    if (!events.mayPost()) co_return skipped("Accessibility is not allowed.");
    std::string seen = "No event could be made.";
    for (int n = 0; n < tries; ++n) {
        const auto at = events.pointerLocation();
        const auto move = at ? events.create(movedTo(*at)) : nullptr;
        if (!move) continue;
        const auto count = events.eventCount(MouseEventType::Moved);
        events.post(*move, EventTap::Hid);
        const auto isCounted = [&events, count] { return events.eventCount(MouseEventType::Moved) != count; };
        const bool isSeen = co_await comesTrue(platform, isCounted, 500ms);
        (void)co_await sleepFor(100ms);
        const auto after = events.pointerLocation();
        const double moved = after ? distance(*at, *after) : NAN;
        if (isSeen && moved <= 1) co_return passed("It was counted, and the pointer stayed.");
        seen = std::string(isSeen ? "It was counted" : "It was not counted") + ", and the pointer moved " +
               said(moved) + " points.";
    }
    co_return failed(seen);
}

Task<Verdict> eventsForOneLeaveThePointer(Platform platform) {
    auto& events = platform.events;
    if (!events.mayPost()) co_return skipped("Accessibility is not allowed.");
    std::string seen = "No event could be made.";
    for (int n = 0; n < tries; ++n) {
        const auto at = events.pointerLocation();
        const auto move = at ? events.create(movedTo({at->x + 50, at->y + 50})) : nullptr;
        if (!move) continue;
        events.postToProcess(*move, platform.application.processIdentifier());
        (void)co_await sleepFor(150ms);
        const auto after = events.pointerLocation();
        const double moved = after ? distance(*at, *after) : NAN;
        if (moved <= 1) co_return passed("The pointer stayed.");
        seen = "The pointer moved " + said(moved) + " points.";
    }
    co_return failed(seen);
}

Verdict trustLetsPost(const Platform& platform) {
    if (!platform.accessibility.isTrusted()) return skipped("Accessibility is not allowed.");
    if (!platform.events.mayPost()) return failed("It is allowed, and yet posted events don't arrive.");
    return passed("Posted events arrive.");
}

Task<Verdict> warpingPutsThePointer(Platform platform) {
    auto& events = platform.events;
    std::string seen = "No event could be made.";
    for (int n = 0; n < tries; ++n) {
        const auto at = events.pointerLocation();
        if (!at) continue;
        const Point beside{at->x + (at->x > 10 ? -5 : 5), at->y};
        events.warpPointer(beside);
        const auto there = events.pointerLocation();
        events.warpPointer(*at);
        const auto back = events.pointerLocation();
        if (there && back && distance(*there, beside) <= 1 && distance(*back, *at) <= 1)
            co_return passed("It was put five points aside and back.");
        seen = "From " + said(*at) + " it was put to " + said(beside) + " and was at " + said(there) +
               ", then put back and was at " + said(back) + ".";
        (void)co_await sleepFor(100ms);
    }
    co_return failed(seen);
}

} // namespace

std::vector<Check> eventsChecks() {
    constexpr auto family = "events";
    return {
        reads(family, "The pointer is on a screen.", pointerIsOnAScreen),
        reads(family, "An event source keeps the settings it was made with.", sourcesKeepTheirSettings),
        reads(family, "A prepared event holds what it was made of.", eventsKeepTheirContent),
        reads(family, "Counts of events never fall.", countsNeverFall),
        reads(family, "Posted events arrive when Accessibility is allowed.", trustLetsPost),
        changes(family, "The pointer is where it was put without an event.", warpingPutsThePointer),
        changes(family, "A move posted to where the pointer is arrives and leaves it there.", movesArrive),
        changes(family, "An event for one process leaves the pointer where it is.",
                eventsForOneLeaveThePointer),
    };
}

} // namespace tavrin::seam_check
