#include "platform/accessibility.h"
#include "platform/accessibility_names.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/item_sight.h"
#include "seam_check/own_element.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr auto label = "Label of the self-check";
constexpr auto help = "Help of the self-check";

Task<Verdict> textsReachAccessibility(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    item->setAccessibilityLabel(label);
    item->setToolTip(help);
    const auto element = co_await ownItemElement(platform, label);
    const bool hasHelp = element && co_await tells(platform, *element, ax::help, help);
    item->setHiddenFromAccessibility(true);
    const auto hidden = co_await ownItemElement(platform, label);
    Findings findings;
    findings.expect(element.has_value(), "its label was not found");
    findings.expect(hasHelp, "its tool tip was not found as help");
    findings.expect(!hidden, "it was still found after it was hidden");
    co_return findings.verdict("Label and help were found, and neither when it was hidden.");
}

/// Where a frame is as seen from the top right of its screen. Accessibility and AppKit may tell of different
/// displays, on all of which an item is equally far from there.
Point fromTopRight(const Platform& platform, const Rect& frame) {
    for (const auto& screen : platform.screens.screens())
        if (screen.frame.contains(frame.middle()))
            return {screen.frame.maxX() - frame.midX(), frame.midY() - screen.frame.minY()};
    return frame.middle();
}

bool isSamePlace(const Platform& platform, const std::optional<Rect>& frame, const Rect& other) {
    if (!frame) return false;
    const auto a = fromTopRight(platform, *frame);
    const auto b = fromTopRight(platform, other);
    return std::abs(a.x - b.x) <= itemSlack && std::abs(a.y - b.y) <= 2 * itemSlack;
}

Task<Verdict> framesAreAlike(Platform platform) {
    const auto shown = co_await shownItem(platform, 53); // no usual length, so that no other window fits
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    item->setAccessibilityLabel(label);
    const auto element = co_await ownItemElement(platform, label);
    if (!element) co_return failed("Accessibility doesn't tell of the item.");
    const auto told = co_await frameOf(platform, *element);
    const auto sight = lookAt(platform, *item);
    const auto frame = sight.frame.value_or(Rect{});
    const auto seen = "Accessibility: " + said(told) + ". AppKit and the window server: " + said(sight) + ".";
    Findings findings;
    findings.expect(isSamePlace(platform, told, frame), "Accessibility has it elsewhere");
    findings.expect(told && std::abs(told->width - frame.width) <= itemSlack,
                    "Accessibility has it of another width");
    findings.expect(sight.window || !sight.areItemsListed, "the window server has no window there");
    if (!findings.areNone()) findings.expect(false, seen);
    co_return findings.verdict(seen);
}

struct Presses {
    int left = 0;
    int right = 0;
    bool areOnMain = true;
};

Task<Verdict> pressesReachTheAction(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto presses = std::make_shared<Presses>();
    item->setAccessibilityLabel(label);
    item->setAction([presses, &scheduler = platform.scheduler](StatusItemPress press) {
        ++(press == StatusItemPress::Left ? presses->left : presses->right);
        presses->areOnMain = presses->areOnMain && scheduler.isMainThread();
    });
    const auto element = co_await ownItemElement(platform, label);
    if (!element) co_return failed("Accessibility doesn't tell of the item.");
    auto& accessibility = platform.accessibility;
    const auto performed = co_await offTheMainThread(
        platform, [&accessibility, element] { return accessibility.perform(*element, ax::pressAction); });
    (void)co_await comesTrue(platform, [presses] { return presses->left + presses->right > 0; }, 2s);
    item->setAction(nullptr);
    Findings findings;
    findings.expect(presses->left == 1,
                    "its action heard of " + counted(static_cast<std::size_t>(presses->left), "left press"));
    findings.expect(presses->right == 0, "it came as a right press");
    findings.expect(presses->areOnMain, "its action was called off the main thread");
    co_return findings.verdict("Its action heard of one left press; the message gave " +
                               (performed ? said(*performed) : "nothing") + ".");
}

} // namespace

std::vector<Check> itemAccessChecks() {
    constexpr auto family = "status items";
    return {
        changes(family, "Label and tool tip reach Accessibility, and a hidden item is not found there.",
                textsReachAccessibility),
        changes(family, "An item is at one place for AppKit, Accessibility and the window server.",
                framesAreAlike),
        changes(family, "A press through Accessibility reaches the item's action, once and as a left one.",
                pressesReachTheAction),
    };
}

} // namespace tavrin::seam_check
