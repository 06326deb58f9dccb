#include "platform/status_items.h"
#include "platform/window_server.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/item_sight.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

bool isAbout(double value, double expected) { return std::abs(value - expected) <= itemSlack; }

/// Frames that an item has before it is placed, but for those without height.
struct EarlyFrame {
    std::optional<Rect> seen;

    bool isPlaced(const Platform& platform, const ScratchItem& item) {
        const auto frame = item->frame();
        if (!frame || frame->height <= 0) return false;
        if (isInAMenuBar(platform, *frame)) return true;
        seen = frame;
        return false;
    }
};

Task<Verdict> newItemsArePlacedSoon(Platform platform) {
    const auto begun = platform.scheduler.now();
    const ScratchItem item(platform, "tavrin-seam-check-new", 40, 150);
    EarlyFrame early;
    const auto isPlaced = [&] { return early.isPlaced(platform, item); };
    const bool wasPlaced = co_await comesTrue(platform, isPlaced, placementTimeMax);
    const auto placedAfter = platform.scheduler.now() - begun;
    const bool wasDrawn = co_await comesTrue(platform, [&item] { return item.isDrawn(); }, 1s);
    const auto drawnAfter = platform.scheduler.now() - begun;
    if (!wasPlaced && early.seen)
        co_return skipped("It stays where no menu bar is, " + said(*early.seen) +
                          ": the menu bar may be hidden, or this program's items not allowed.");
    if (!wasPlaced)
        co_return failed("After " + said(placedAfter) + " its frame is " + said(item->frame()) + ".");
    if (early.seen)
        co_return failed("Before it was in the menu bar it was told to be " + said(*early.seen) + ".");
    co_return passed("It had its place after " + said(placedAfter) +
                     (wasDrawn ? " and was drawn after " + said(drawnAfter) + "." : " and was not drawn."));
}

/// A window that is gone from the list may have left a neighbour in its place, so it is known by its number.
bool isListed(const Platform& platform, const OnScreenWindow& window) {
    return std::ranges::any_of(platform.windowServer.onScreenWindows(),
                               [&](const OnScreenWindow& one) { return one.number == window.number; });
}

Task<Verdict> sourcesAgreeOnWhatIsDrawn(Platform platform) {
    const auto shown = co_await shownItem(platform, 53); // no usual length, so that no other window fits
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto before = lookAt(platform, *item);
    item->setVisible(false);
    (void)co_await comesTrue(platform, [&item] { return !item->isDrawn(); }, 2s);
    const auto isGone = [&] { return !before.window || !isListed(platform, *before.window); };
    const bool hasLeftTheList = co_await comesTrue(platform, isGone, 2s);
    Findings findings;
    findings.expect(before.isSeen(), "it was " + said(before));
    findings.expect(!item->isDrawn(), "made invisible, it is still drawn");
    findings.expect(hasLeftTheList, "made invisible, its window is still in the list");
    co_return findings.verdict("It was " + said(before) + ". Made invisible, it was " +
                               said(lookAt(platform, *item)) + ".");
}

Task<Verdict> newItemsAreInTheMenuBar(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto frame = item->frame().value_or(Rect{});
    Findings findings;
    findings.expect(item->length() == 40, "its length is " + said(item->length()));
    findings.expect(isAbout(frame.width, 40), "it is " + said(frame.width) + " wide");
    findings.expect(isInAMenuBar(platform, frame), said(frame) + " is in no menu bar, from the top left");
    co_return findings.verdict("An item of length 40 is " + said(frame) + ".");
}

Task<Verdict> lengthsGrowToTheLeft(Platform platform) {
    const auto shown = co_await shownItem(platform, 30);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto before = item->frame().value_or(Rect{});
    item->setLength(50);
    const auto isWider = [&item, before] {
        return item->frame().value_or(Rect{}).width >= before.width + 15;
    };
    (void)co_await comesTrue(platform, isWider, 2s);
    (void)co_await comesToRest(&*item);
    const auto after = item->frame().value_or(Rect{});
    if (!item->isDrawn())
        co_return skipped("The longer item had no room: " + said(lookAt(platform, *item)) + ".");
    Findings findings;
    findings.expect(item->length() == 50, "its length is " + said(item->length()));
    findings.expect(isAbout(after.width, before.width + 20),
                    "20 points more made " + said(before) + " " + said(after));
    findings.expect(isAbout(after.maxX(), before.maxX()),
                    "its right edge went from " + said(before.maxX()) + " to " + said(after.maxX()));
    co_return findings.verdict(said(before) + " became " + said(after) + ".");
}

Task<Verdict> specialLengths(Platform platform) {
    const auto shown = co_await shownItem(platform, squareStatusItemLength);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto square = item->frame().value_or(Rect{});
    Findings findings;
    findings.expect(item->length() == squareStatusItemLength, "a square item forgets that it is one");
    findings.expect(square.width >= 16 && square.width <= 60, "a square item is " + said(square));
    item->setLength(0);
    const bool isEmpty =
        co_await comesTrue(platform, [&item] { return item->frame().value_or(Rect{}).width == 0; }, 2s);
    findings.expect(item->length() == 0, "an item of length 0 has the length " + said(item->length()));
    findings.expect(isEmpty, "an item of length 0 is " + said(item->frame()));
    co_return findings.verdict("A square item is " + said(square) + ".");
}

Task<Verdict> looksChangeNoPlace(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto before = item->frame();
    item->setImage({TemplateImage::Source::System, "no symbol has this name", "Tavrin"});
    item->setImage({TemplateImage::Source::Bundle, "no image has this name", "Tavrin"});
    item->setImage({TemplateImage::Source::System, "chevron.left", "Tavrin"});
    item->setAlpha(0.5);
    item->setDecorations(true, 0.7);
    item->setToolTip("Self-check of Tavrin");
    (void)co_await comesToRest(&*item);
    const auto after = item->frame();
    Findings findings;
    findings.expect(before == after, said(before) + " became " + said(after));
    findings.expect(item->length() == 40, "its length became " + said(item->length()));
    co_return findings.verdict("Images, opacity, decorations and a tool tip left it at " + said(after) + ".");
}

Task<Verdict> hiddenItemsComeBack(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    item->setVisible(false);
    const bool hasGone = co_await comesTrue(platform, [&item] { return !item->isDrawn(); }, 2s);
    item->setVisible(true);
    const bool isDrawnAgain = co_await comesTrue(platform, [&item] { return item.isDrawn(); }, 2s);
    Findings findings;
    findings.expect(hasGone, "it was still drawn after it was made invisible");
    findings.expect(item->frame().has_value(), "it had no place after it was made visible again");
    // macOS has forgotten its place by then and puts it left of all others, where there may be no room.
    co_return findings.verdict(isDrawnAgain ? "It went and came." : "It went and came, but was not drawn.");
}

} // namespace

std::vector<Check> statusItemsChecks() {
    constexpr auto family = "status items";
    return {
        changes(family, "A new item gets its place within five seconds, and has no height before.",
                newItemsArePlacedSoon),
        changes(family, "Of a drawn item AppKit, its frame and the window server's list tell the same.",
                sourcesAgreeOnWhatIsDrawn),
        changes(family,
                "A new item is in the menu bar with the length it was given, counted from the top left.",
                newItemsAreInTheMenuBar),
        changes(family, "A longer item grows to the left.", lengthsGrowToTheLeft),
        changes(family, "Square items are square, and items of length 0 have no width.", specialLengths),
        changes(family, "What is drawn in an item changes neither its place nor its length.",
                looksChangeNoPlace),
        changes(family, "An item made invisible is not drawn, and has a place again when it is made visible.",
                hiddenItemsComeBack),
    };
}

} // namespace tavrin::seam_check
