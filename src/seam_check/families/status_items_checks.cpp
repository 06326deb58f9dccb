#include "platform/accessibility.h"
#include "platform/accessibility_names.h"
#include "platform/application.h"
#include "platform/status_items.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr double slack = 4; // points; macOS draws some items a little wider than their places

bool isAbout(double value, double expected) { return std::abs(value - expected) <= slack; }

bool isInAMenuBar(const Platform& platform, const Rect& frame) {
    return std::ranges::any_of(platform.screens.screens(), [&](const Screen& screen) {
        const auto& whole = screen.frame;
        return frame.minY() >= whole.minY() - 1 &&
               frame.maxY() <= whole.minY() + screen.menuBarHeight + slack && frame.maxX() > whole.minX() &&
               frame.minX() < whole.maxX();
    });
}

Task<Verdict> newItemsAreInTheMenuBar(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return skipped(itemNotDrawn);
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
    if (!shown) co_return skipped(itemNotDrawn);
    const auto& item = *shown;
    const auto before = item->frame().value_or(Rect{});
    item->setLength(50);
    const auto isWider = [&item, before] {
        return item->frame().value_or(Rect{}).width >= before.width + 15;
    };
    (void)co_await comesTrue(platform, isWider, 2s);
    (void)co_await comesToRest(&*item);
    const auto after = item->frame().value_or(Rect{});
    if (!item->isDrawn()) co_return skipped("The longer item had no room.");
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
    if (!shown) co_return skipped(itemNotDrawn);
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
    if (!shown) co_return skipped(itemNotDrawn);
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
    if (!shown) co_return skipped(itemNotDrawn);
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

Task<Verdict> storedPlacesAreTaken(Platform platform) {
    // Without stored places the item that is made later would stand further left.
    const ScratchItem first(platform, "tavrin-seam-check-left", 24, 160);
    const ScratchItem second(platform, "tavrin-seam-check-right", 24, 150);
    const auto areDrawn = [&] { return first.isDrawn() && second.isDrawn(); };
    if (!co_await comesTrue(platform, areDrawn, 3s)) co_return skipped(itemNotDrawn);
    (void)co_await comesToRest(&*first);
    (void)co_await comesToRest(&*second);
    const auto a = first->frame();
    const auto b = second->frame();
    if (!a || !b) co_return skipped(itemNotDrawn);
    const auto seen = "The items are " + said(*a) + " and " + said(*b) + ".";
    if (a->minX() < b->minX()) co_return passed(seen);
    if (platform.workspace.operatingSystemVersion().major >= 27)
        co_return skipped("From macOS 27 on the system may keep places elsewhere. " + seen);
    co_return failed("The places stored for them were not taken. " + seen);
}

struct ItemTexts {
    bool isLabelled = false;
    bool hasHelp = false;
};

bool tells(Accessibility& accessibility, const AccessibilityElement& item, std::string_view attribute,
           const std::string& text) {
    const auto answer = accessibility.attribute(item, attribute);
    const auto* value = answer ? std::get_if<std::string>(&*answer) : nullptr;
    return value && value->contains(text);
}

/// What Accessibility tells of this process's own items; runs off the main thread.
ItemTexts ownItemTexts(Accessibility& accessibility, const AccessibilityElement& application,
                       const std::string& label, const std::string& help) {
    ItemTexts texts;
    const auto bar = accessibility.attribute(application, ax::extrasMenuBar);
    const auto* element = bar ? std::get_if<AccessibilityElement>(&*bar) : nullptr;
    if (!element) return texts;
    const auto children = accessibility.attribute(*element, ax::children);
    const auto* items = children ? std::get_if<std::vector<AccessibilityElement>>(&*children) : nullptr;
    if (!items) return texts;
    for (const auto& item : *items) {
        texts.isLabelled = texts.isLabelled || tells(accessibility, item, ax::description, label) ||
                           tells(accessibility, item, ax::title, label);
        texts.hasHelp = texts.hasHelp || tells(accessibility, item, ax::help, help);
    }
    return texts;
}

Task<ItemTexts> ownItemTexts(Platform platform, std::string label, std::string help) {
    auto& accessibility = platform.accessibility;
    const auto application = accessibility.application(platform.application.processIdentifier());
    accessibility.setMessagingTimeout(application, 2s);
    const auto texts = co_await offTheMainThread(
        platform, [&accessibility, application, label = std::move(label), help = std::move(help)] {
            return ownItemTexts(accessibility, application, label, help);
        });
    co_return texts.value_or(ItemTexts{});
}

Task<Verdict> textsReachAccessibility(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return skipped(itemNotDrawn);
    const auto& item = *shown;
    item->setAccessibilityLabel("Label of the self-check");
    item->setToolTip("Help of the self-check");
    const auto told = co_await ownItemTexts(platform, "Label of the self-check", "Help of the self-check");
    item->setHiddenFromAccessibility(true);
    const auto hidden = co_await ownItemTexts(platform, "Label of the self-check", "Help of the self-check");
    Findings findings;
    findings.expect(told.isLabelled, "its label was not found");
    findings.expect(told.hasHelp, "its tool tip was not found as help");
    findings.expect(!hidden.isLabelled, "it was still found after it was hidden");
    co_return findings.verdict("Label and help were found, and neither when it was hidden.");
}

} // namespace

std::vector<Check> statusItemsChecks() {
    constexpr auto family = "status items";
    return {
        changes(family,
                "A new item is in the menu bar with the length it was given, counted from the top left.",
                newItemsAreInTheMenuBar),
        changes(family, "A longer item grows to the left.", lengthsGrowToTheLeft),
        changes(family, "Square items are square, and items of length 0 have no width.", specialLengths),
        changes(family, "What is drawn in an item changes neither its place nor its length.",
                looksChangeNoPlace),
        changes(family, "An item made invisible is not drawn, and has a place again when it is made visible.",
                hiddenItemsComeBack),
        changes(family, "An item takes the place that is stored under its name.", storedPlacesAreTaken),
        changes(family, "Label and tool tip reach Accessibility, and a hidden item is not found there.",
                textsReachAccessibility),
    };
}

} // namespace tavrin::seam_check
