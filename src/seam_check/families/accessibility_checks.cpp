#include "platform/accessibility.h"
#include "platform/accessibility_names.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <array>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr Seconds messageTimeMax = 2s;
constexpr std::string_view unknownAttribute = "AXTavrinHasNoSuchAttribute";
constexpr std::string_view unknownAction = "AXTavrinHasNoSuchAction";

AccessibilityElement boundedApplication(Accessibility& accessibility, ProcessIdentifier process) {
    auto element = accessibility.application(process);
    accessibility.setMessagingTimeout(element, messageTimeMax);
    return element;
}

AccessibilityElement ownApplication(const Platform& platform) {
    return boundedApplication(platform.accessibility, platform.application.processIdentifier());
}

/// A process of the system that answers on every Mac; none when it doesn't run.
std::optional<ProcessIdentifier> processOf(const Platform& platform, std::string_view bundleIdentifier) {
    for (const auto& application : platform.workspace.runningApplications())
        if (application.bundleIdentifier == bundleIdentifier) return application.processIdentifier;
    return std::nullopt;
}

Task<AttributeResult> attributeOf(Platform platform, AccessibilityElement element, std::string_view name) {
    auto& accessibility = platform.accessibility;
    auto answer = co_await offTheMainThread(
        platform, [&accessibility, element, name] { return accessibility.attribute(element, name); });
    if (!answer) co_return std::unexpected(AccessibilityError::CannotComplete);
    co_return std::move(*answer);
}

template <class Type>
bool holds(const AttributeResult& result) {
    return result && std::holds_alternative<Type>(*result);
}

bool isText(const AttributeResult& result, std::string_view text) {
    return holds<std::string>(result) && std::get<std::string>(*result) == text;
}

bool isEmptyHanded(const AttributeResult& result) {
    return !result && (result.error() == AccessibilityError::AttributeUnsupported ||
                       result.error() == AccessibilityError::NoValue);
}

Verdict trustIsCheap(const Platform& platform) {
    const auto begun = platform.scheduler.now();
    const bool first = platform.accessibility.isTrusted();
    const bool second = platform.accessibility.isTrusted();
    const auto took = platform.scheduler.now() - begun;
    Findings findings;
    findings.expect(first == second, "the answer changes from one question to the next");
    findings.expect(took < 500ms, "two questions took " + said(took));
    return findings.verdict(first ? "Accessibility is allowed." : "Accessibility is not allowed.");
}

Verdict equalReferencesAreEqual(const Platform& platform) {
    auto& accessibility = platform.accessibility;
    const auto own = platform.application.processIdentifier();
    const auto first = accessibility.application(own);
    const auto second = accessibility.application(own);
    const auto other = accessibility.application(own + 1);
    Findings findings;
    findings.expect(first == second && second == first, "two references to one process differ");
    findings.expect(first.hash() == second.hash(), "equal references have different hashes");
    findings.expect(!(first == other) && !(other == first), "references to two processes are equal");
    return findings.verdict("Two are equal, a third is not.");
}

Task<Verdict> programReadsItself(Platform platform) {
    const auto own = ownApplication(platform);
    const auto role = co_await attributeOf(platform, own, ax::role);
    const auto title = co_await attributeOf(platform, own, ax::title);
    const auto frontmost = co_await attributeOf(platform, own, ax::frontmost);
    const auto children = co_await attributeOf(platform, own, ax::children);
    Findings findings;
    findings.expect(isText(role, "AXApplication"), "its role is no text “AXApplication” but " + said(role));
    findings.expect(holds<std::string>(title), "its title is no text but " + said(title));
    findings.expect(holds<bool>(frontmost), "whether it is frontmost is no boolean but " + said(frontmost));
    findings.expect(holds<std::vector<AccessibilityElement>>(children),
                    "its children are no elements but " + said(children));
    co_return findings.verdict("Role, title, a boolean and the children came with their types.");
}

Task<Verdict> unknownAttributesAreErrors(Platform platform) {
    const auto answer = co_await attributeOf(platform, ownApplication(platform), unknownAttribute);
    if (!isEmptyHanded(answer)) co_return failed("It gave " + said(answer) + ".");
    co_return passed("It gave " + said(answer) + ".");
}

Task<Verdict> batchesKeepTheirOrder(Platform platform) {
    auto& accessibility = platform.accessibility;
    const auto batch = co_await offTheMainThread(platform, [&accessibility, own = ownApplication(platform)] {
        static constexpr std::array names{ax::role, unknownAttribute, ax::title, ax::frontmost};
        return accessibility.attributes(own, names);
    });
    if (!batch || !*batch) co_return failed("The message gave " + (batch ? said(*batch) : "nothing") + ".");
    const auto& results = **batch;
    if (results.size() != 4) co_return failed("Four names gave " + counted(results.size(), "result") + ".");
    Findings findings;
    findings.expect(isText(results[0], "AXApplication"), "the first is not the role");
    findings.expect(isEmptyHanded(results[1]), "an attribute that doesn't exist gave " + said(results[1]));
    findings.expect(holds<std::string>(results[2]), "the third is not the title");
    findings.expect(holds<bool>(results[3]), "the fourth is no boolean");
    co_return findings.verdict("Role, " + said(results[1]) + ", title and boolean in their order.");
}

Task<Verdict> unknownActionsFail(Platform platform) {
    auto& accessibility = platform.accessibility;
    const auto own = ownApplication(platform);
    const auto names =
        co_await offTheMainThread(platform, [&accessibility, own] { return accessibility.actionNames(own); });
    const auto performed = co_await offTheMainThread(
        platform, [&accessibility, own] { return accessibility.perform(own, unknownAction); });
    if (!names || !performed) co_return failed("The messages were not sent.");
    Findings findings;
    findings.expect(!*names || std::ranges::count(**names, unknownAction) == 0, "it is among the names");
    findings.expect(!*performed, "it was performed");
    co_return findings.verdict("Performing it gave " + said(*performed) + ", the names " + said(*names) +
                               ".");
}

Task<Verdict> elementsTellTheirProcess(Platform platform) {
    const auto process = platform.accessibility.processOf(ownApplication(platform));
    if (process != platform.application.processIdentifier())
        co_return failed(process ? "This program's element is said to be of process " +
                                       std::to_string(*process) + "."
                                 : "Nothing is known of this program's element.");
    co_return passed("This program's element is of process " + std::to_string(*process) + ".");
}

Task<Verdict> missingProcessesFail(Platform platform) {
    constexpr ProcessIdentifier nobody = 999'999; // above the largest that macOS gives
    const auto begun = platform.scheduler.now();
    const auto element = boundedApplication(platform.accessibility, nobody);
    const auto answer = co_await attributeOf(platform, element, ax::role);
    const auto took = platform.scheduler.now() - begun;
    Findings findings;
    findings.expect(!answer, "it has a role");
    findings.expect(took < messageTimeMax + 1s, "the answer took " + said(took));
    co_return findings.verdict("It gave " + said(answer) + ".");
}

Task<Verdict> othersAreReadWithTrustAlone(Platform platform) {
    const auto dock = processOf(platform, "com.apple.dock");
    if (!dock) co_return skipped("The Dock isn't listed.");
    const bool isTrusted = platform.accessibility.isTrusted();
    const auto role =
        co_await attributeOf(platform, boundedApplication(platform.accessibility, *dock), ax::role);
    if (isTrusted && !isText(role, "AXApplication"))
        co_return failed("Though it is allowed, the Dock's role gave " + said(role) + ".");
    if (!isTrusted && role) co_return failed("The Dock answered though it is not allowed.");
    co_return passed(isTrusted ? "The Dock tells its role." : "The Dock's role gave " + said(role) + ".");
}

Task<Verdict> timeoutsStayOnTheirReference(Platform platform) {
    auto& accessibility = platform.accessibility;
    const auto hurried = accessibility.application(platform.application.processIdentifier());
    const auto patient = accessibility.application(platform.application.processIdentifier());
    accessibility.setMessagingTimeout(hurried, 10us);
    const auto late = co_await attributeOf(platform, hurried, ax::role);
    const auto answer = co_await attributeOf(platform, patient, ax::role);
    if (!isText(answer, "AXApplication"))
        co_return failed("An equal reference without a time-out gave " + said(answer) + ".");
    co_return passed("With a time-out of 10 µs the reference gave " + said(late) +
                     ", without one an equal one answered.");
}

struct ItemFrame {
    AttributeResult role;
    AttributeResult position;
    AttributeResult size;
};

/// The first item of the application's extras bar; runs off the main thread.
std::optional<ItemFrame> firstItemOf(Accessibility& accessibility, const AccessibilityElement& application) {
    const auto bar = accessibility.attribute(application, ax::extrasMenuBar);
    if (!holds<AccessibilityElement>(bar)) return std::nullopt;
    const auto children = accessibility.attribute(std::get<AccessibilityElement>(*bar), ax::children);
    if (!holds<std::vector<AccessibilityElement>>(children)) return std::nullopt;
    const auto& items = std::get<std::vector<AccessibilityElement>>(*children);
    if (items.empty()) return std::nullopt;
    const auto read = [&](std::string_view name) { return accessibility.attribute(items.front(), name); };
    return ItemFrame{read(ax::role), read(ax::position), read(ax::size)};
}

bool liesInMenuBar(const Rect& frame, const std::vector<Screen>& screens) {
    return std::ranges::any_of(screens, [&](const Screen& screen) {
        return frame.minY() >= screen.frame.minY() - 1 &&
               frame.maxY() <= screen.frame.minY() + screen.menuBarHeight + 4;
    });
}

Task<Verdict> extrasLieInTheMenuBar(Platform platform) {
    if (!platform.accessibility.isTrusted()) co_return skipped("Accessibility is not allowed.");
    const auto owner = processOf(platform, "com.apple.controlcenter");
    if (!owner) co_return skipped("Control Center isn't listed.");
    auto& accessibility = platform.accessibility;
    const auto item = co_await offTheMainThread(
        platform, [&accessibility, bar = boundedApplication(accessibility, *owner)] {
            return firstItemOf(accessibility, bar);
        });
    if (!item || !*item) co_return skipped("Control Center tells of no item in the menu bar.");
    const auto& [role, position, size] = **item;
    if (!holds<Point>(position) || !holds<Size>(size))
        co_return failed("Its position gave " + said(position) + ", its size " + said(size) + ".");
    const auto frame = Rect::from(std::get<Point>(*position), std::get<Size>(*size));
    Findings findings;
    findings.expect(holds<std::string>(role), "its role is no text");
    findings.expect(liesInMenuBar(frame, platform.screens.screens()),
                    said(frame) + " is in no menu bar, counted from the top left");
    co_return findings.verdict("An item of Control Center is " + said(frame) + ".");
}

} // namespace

std::vector<Check> accessibilityChecks() {
    constexpr auto family = "accessibility";
    return {
        reads(family, "Whether Accessibility is allowed is told at once.", trustIsCheap),
        reads(family, "References to one element are equal and hash equally; to two they differ.",
              equalReferencesAreEqual),
        reads(family, "An element tells which process answers for it.", elementsTellTheirProcess),
        reads(family, "The program reads itself, and values keep their types.", programReadsItself),
        reads(family, "An attribute that an element lacks is unsupported or without a value.",
              unknownAttributesAreErrors),
        reads(family, "Several attributes in one message come in order, each with its own error.",
              batchesKeepTheirOrder),
        reads(family, "An action that an element lacks is an error and not among its names.",
              unknownActionsFail),
        reads(family, "A process that doesn't exist gives an error in time.", missingProcessesFail),
        reads(family, "Other processes answer when Accessibility is allowed, and only then.",
              othersAreReadWithTrustAlone),
        reads(family, "A messaging time-out bounds its own reference alone.", timeoutsStayOnTheirReference),
        reads(family, "Positions of items in the menu bar are counted from the top left.",
              extrasLieInTheMenuBar),
    };
}

} // namespace tavrin::seam_check
