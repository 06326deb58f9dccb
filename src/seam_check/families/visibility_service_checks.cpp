#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/status_items.h"
#include "platform/visibility_service.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr int systemItemNumbers = 256;
constexpr int firstVersionWithLists = 27;
constexpr Seconds answerTimeMax{3};

/// What the service has answered so far, on whatever thread.
struct Answers {
    std::atomic<int> accepted = 0;
    std::atomic<int> refused = 0;

    int count() const { return accepted + refused; }
};

/// A list of all that runs, with or without this program itself.
std::unique_ptr<VisibilityAssertion> listOf(const Platform& platform, bool withOwnItems) {
    std::vector<int> numbers(systemItemNumbers);
    std::iota(numbers.begin(), numbers.end(), 0);
    const auto own = platform.application.bundleIdentifier();
    std::vector<std::string> bundles;
    for (auto& application : platform.workspace.runningApplications()) {
        if (application.bundleIdentifier && *application.bundleIdentifier != own)
            bundles.push_back(std::move(*application.bundleIdentifier));
    }
    if (withOwnItems) bundles.push_back(own);
    std::ranges::sort(bundles);
    return platform.visibilityService.make(numbers, bundles);
}

std::shared_ptr<Answers> handOver(VisibilityAssertion& list) {
    auto answers = std::make_shared<Answers>();
    list.activate([answers](const auto& error) { ++(error ? answers->refused : answers->accepted); });
    return answers;
}

Task<bool> isAnswered(Platform platform, std::shared_ptr<Answers> answers) {
    co_return co_await comesTrue(platform, [answers] { return answers->count() > 0; }, answerTimeMax);
}

/// Why nothing can be tried; none where there is a service.
std::optional<Verdict> verdictWithoutService(const Platform& platform) {
    if (platform.visibilityService.isAvailable()) return std::nullopt;
    if (platform.workspace.operatingSystemVersion().major < firstVersionWithLists)
        return inapplicable("This macOS has no such service.");
    return failed("This macOS should have the service, and its interface wasn’t found.");
}

Verdict serviceSaysWhetherItIsThere(const Platform& platform) {
    auto& service = platform.visibilityService;
    const bool isThere = service.isAvailable();
    Findings findings;
    findings.expect(service.isAvailable() == isThere, "asked again it said something else");
    findings.expect((listOf(platform, true) != nullptr) == isThere,
                    "a list could be made only when it is not there");
    return findings.verdict(isThere ? "It is there, and a list was made." : "It isn’t there.");
}

Task<Verdict> listsAreAnsweredOnce(Platform platform) {
    if (auto verdict = verdictWithoutService(platform)) co_return std::move(*verdict);
    const auto list = listOf(platform, true);
    if (!list) co_return failed("No list could be made.");
    const auto answers = handOver(*list);
    if (!co_await isAnswered(platform, answers)) co_return failed("No answer came within 3 s.");
    list->invalidate();
    list->invalidate();
    (void)co_await sleepFor(500ms);
    Findings findings;
    findings.expect(answers->refused == 0, "a list of everything was refused");
    findings.expect(answers->count() == 1, "the answer came " + counted(answers->count(), "time"));
    co_return findings.verdict("A list of everything was accepted, once.");
}

Task<Verdict> listsHideWhatIsNotOnThem(Platform platform) {
    if (auto verdict = verdictWithoutService(platform)) co_return std::move(*verdict);
    auto item = co_await shownItem(platform, 24);
    if (!item) co_return std::move(item.error());
    const auto list = listOf(platform, false);
    if (!list) co_return failed("No list could be made.");
    const auto answers = handOver(*list);
    if (!co_await isAnswered(platform, answers)) co_return failed("No answer came within 3 s.");
    const auto& shown = *item;
    const bool isGone = co_await comesTrue(platform, [&shown] { return !shown.isDrawn(); }, 3s);
    list->invalidate();
    const bool isBack = co_await comesTrue(platform, [&shown] { return shown.isDrawn(); }, placementTimeMax);
    Findings findings;
    findings.expect(answers->accepted > 0, "the list was refused");
    findings.expect(isGone, "the item stayed although it wasn’t on the list");
    findings.expect(isBack, "the item didn’t come back when the list had ended");
    co_return findings.verdict("The item left the menu bar, and came back.");
}

} // namespace

std::vector<Check> visibilityServiceChecks() {
    constexpr auto family = "visibility service";
    return {
        reads(family, "The service that hides items says the same of itself each time.",
              serviceSaysWhetherItIsThere),
        changes(family, "A list of what may show is answered once.", listsAreAnsweredOnce),
        changes(family, "An own item leaves the menu bar while a list is in force that it isn’t on.",
                listsHideWhatIsNotOnThem),
    };
}

} // namespace tavrin::seam_check
