#include "concurrency/waits.h"
#include "platform/events.h"
#include "platform/status_items.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/item_sight.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr int firstVersionWithHostedItems = 27;

bool areItemsHosted(const Platform& platform) {
    return platform.workspace.operatingSystemVersion().major >= firstVersionWithHostedItems;
}

Rect frameNow(const ScratchItem& item) { return item->frame().value_or(Rect{}); }

bool isLeftOf(const ScratchItem& item, const ScratchItem& other) {
    return frameNow(item).minX() < frameNow(other).minX();
}

std::string saidOf(const ItemPair& pair) {
    return "The left item is " + said(pair.left->frame()) + ", the right one " + said(pair.right->frame()) +
           ".";
}

Task<Verdict> storedPlacesAreTaken(Platform platform) {
    const auto pair = co_await shownPair(platform);
    if (!pair) co_return pair.error();
    if (isLeftOf(pair->left, pair->right)) co_return passed(saidOf(*pair));
    if (areItemsHosted(platform))
        co_return inapplicable("From macOS 27 on the system may keep places elsewhere. " + saidOf(*pair));
    co_return failed("The places stored for them were not taken. " + saidOf(*pair));
}

Task<Verdict> emptyItemsHaveAPlace(Platform platform) {
    const ScratchItem empty(platform, "tavrin-seam-check-empty", 0, 160);
    const ScratchItem right(platform, "tavrin-seam-check-right", 24, 150);
    const auto arePlaced = [&] { return empty.isPlaced() && right.isPlaced(); };
    const bool isInTime = co_await comesTrue(platform, arePlaced, placementTimeMax);
    const auto seen =
        "It is " + said(empty->frame()) + ", the item on its right " + said(right->frame()) + ".";
    if (!right.isPlaced()) co_return skipped("The item beside it has no place either. " + seen);
    if (!isInTime) co_return failed("It has no place. " + seen);
    (void)co_await comesToRest(&*empty);
    (void)co_await comesToRest(&*right);
    const auto frame = frameNow(empty);
    Findings findings;
    findings.expect(empty->length() == 0, "its length is " + said(empty->length()));
    findings.expect(frame.width == 0, "it is " + said(frame.width) + " wide");
    findings.expect(isInAMenuBar(platform, frame), said(frame) + " is in no menu bar");
    findings.expect(areItemsHosted(platform) || frame.minX() <= frameNow(right).minX() + itemSlack,
                    "it isn't left of the item that is stored right of it");
    co_return findings.verdict(seen);
}

/// More than the screens side by side.
double pushingLength(const Platform& platform) {
    double width = 0;
    for (const auto& screen : platform.screens.screens()) width += screen.frame.width;
    return std::min(width + 1000, 10'000.0); // the longest that macOS makes an item
}

double leftEdge(const Platform& platform) {
    double edge = 0;
    for (const auto& screen : platform.screens.screens()) edge = std::min(edge, screen.frame.minX());
    return edge;
}

Task<Verdict> longItemsPushOthersAway(Platform platform) {
    if (areItemsHosted(platform)) co_return inapplicable("From macOS 27 on a long item is left out itself.");
    const auto pair = co_await shownPair(platform);
    if (!pair) co_return pair.error();
    if (!isLeftOf(pair->left, pair->right))
        co_return skipped("The items don't stand in order. " + saidOf(*pair));
    const auto& [left, right] = *pair;
    const auto before = frameNow(left);
    const auto isAway = [&] { return frameNow(left).maxX() <= leftEdge(platform) && !left->isDrawn(); };
    const auto isBack = [&] { return std::abs(frameNow(left).x - before.x) <= itemSlack && left->isDrawn(); };
    right->setLength(pushingLength(platform));
    const bool wasPushed = co_await comesTrue(platform, isAway, 3s);
    const auto away = lookAt(platform, *left);
    right->setLength(24);
    const bool hasReturned = co_await comesTrue(platform, isBack, 3s);
    Findings findings;
    findings.expect(wasPushed,
                    "beside an item of " + said(pushingLength(platform)) + " points it was " + said(away));
    findings.expect(hasReturned,
                    "after that it was " + said(lookAt(platform, *left)) + " and not at " + said(before));
    co_return findings.verdict("From " + said(before) + " it was pushed away, " + said(away) +
                               ", and came back.");
}

/// A drag with Command held, at the pace of a hand. Whatever becomes of the check, the button is up at its
/// end and the pointer where it was.
Task<bool> commandDrag(Platform platform, Point from, Point to) {
    constexpr int steps = 12;
    auto& events = platform.events;
    const auto home = events.pointerLocation().value_or(from);
    const std::int64_t number = std::int64_t{events.eventCount(MouseEventType::LeftDown)} + 1;
    auto at = from;
    const auto post = [&](MouseEventType type, Point place) {
        MouseEvent event{.type = type,
                         .location = place,
                         .flags = commandEventFlag,
                         .clickState = {},
                         .fields = {},
                         .source = nullptr};
        if (type == MouseEventType::Moved) event.flags = noEventFlags;
        // macOS 26 takes drags and the release for those of a press only under one number above all before.
        if (type != MouseEventType::Moved) event.fields[EventField::EventNumber] = number;
        if (type == MouseEventType::LeftDragged)
            event.fields[EventField::DeltaX] = std::llround(place.x) - std::llround(at.x);
        at = place;
        const auto made = events.create(event);
        if (made) events.post(*made, EventTap::Hid);
        return made != nullptr;
    };
    bool isMade = post(MouseEventType::Moved, from);
    (void)co_await sleepFor(60ms);
    isMade = post(MouseEventType::LeftDown, from) && isMade;
    (void)co_await sleepFor(80ms);
    for (int step = 1; step <= steps; ++step) {
        isMade = post(MouseEventType::LeftDragged, {from.x + (to.x - from.x) * step / steps, to.y}) && isMade;
        (void)co_await sleepFor(20ms);
    }
    isMade = post(MouseEventType::LeftUp, to) && isMade;
    (void)co_await sleepFor(200ms);
    events.warpPointer(home);
    co_return isMade;
}

Task<Verdict> dragsChangeTheOrder(Platform platform) {
    if (areItemsHosted(platform))
        co_return inapplicable("From macOS 27 on such drags reach the program as clicks.");
    if (!platform.events.mayPost()) co_return skipped("Accessibility is not allowed.");
    const auto pair = co_await shownPair(platform);
    if (!pair) co_return pair.error();
    const auto before = saidOf(*pair);
    if (!isLeftOf(pair->left, pair->right)) co_return skipped("The items don't stand in order. " + before);
    const auto from = frameNow(pair->left).middle();
    const Point to{frameNow(pair->right).maxX() - 2, from.y};
    const bool wasPosted = co_await commandDrag(platform, from, to);
    const auto haveChanged = [&] { return isLeftOf(pair->right, pair->left); };
    const bool isInOrder = co_await comesTrue(platform, haveChanged, 2s);
    if (!wasPosted) co_return failed("The events for it could not be made.");
    if (!isInOrder) co_return failed("The left one was not moved. " + saidOf(*pair));
    co_return passed("Before: " + before + " After: " + saidOf(*pair));
}

} // namespace

std::vector<Check> itemOrderChecks() {
    constexpr auto family = "status items";
    return {
        changes(family, "An item takes the place that is stored under its name.", storedPlacesAreTaken),
        changes(family, "An item that is made with length 0 has a place without width.",
                emptyItemsHaveAPlace),
        changes(family, "A long item pushes the one on its left off the screen, until it is short again.",
                longItemsPushOthersAway),
        changes(family, "A drag with Command moves an item past its neighbour.", dragsChangeTheOrder),
    };
}

} // namespace tavrin::seam_check
