#include "seam_check/report.h"

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/page_for_the_eyes.h"
#include "seam_check/words.h"

#include <algorithm>

namespace tavrin::seam_check {

namespace {

std::string_view word(Outcome outcome) {
    switch (outcome) {
    case Outcome::Passed:
        return "passed  ";
    case Outcome::Failed:
        return "FAILED  ";
    case Outcome::Skipped:
        return "untried ";
    case Outcome::Inapplicable:
        return "not here";
    }
    return "";
}

std::ptrdiff_t countOf(const std::vector<CheckResult>& results, Outcome outcome) {
    return std::ranges::count_if(results, [&](const auto& one) { return one.verdict.outcome == outcome; });
}

void writeScreen(std::ostream& out, const Screen& screen) {
    out << "Screen: " << said(screen.frame) << ", scale " << said(screen.scale) << ", menu bar "
        << said(screen.menuBarHeight);
    if (screen.leftMenuBarArea) out << ", left of the notch " << said(*screen.leftMenuBarArea);
    if (screen.rightMenuBarArea) out << ", right of the notch " << said(*screen.rightMenuBarArea);
    out << '\n';
}

/// A heading, and the results with this outcome, if there are any.
void writeAgain(std::ostream& out, const std::vector<CheckResult>& results, Outcome outcome,
                std::string_view heading) {
    if (countOf(results, outcome) == 0) return;
    out << '\n' << heading << ":\n";
    for (const auto& result : results)
        if (result.verdict.outcome == outcome) writeResult(out, result);
}

} // namespace

void writeHead(std::ostream& out, const Platform& platform, std::string_view architecture) {
    const auto version = platform.workspace.operatingSystemVersion();
    out << "Self-check of Tavrin, " << platform.application.displayVersion() << '\n';
    out << "Program: " << platform.application.bundleIdentifier() << '\n';
    out << "macOS " << version.major << '.' << version.minor << ", " << architecture << '\n';
    for (const auto& screen : platform.screens.screens()) writeScreen(out, screen);
    out << "Accessibility: " << (platform.accessibility.isTrusted() ? "allowed" : "not allowed") << "\n\n";
}

void writeResult(std::ostream& out, const CheckResult& result) {
    out << word(result.verdict.outcome) << "  " << result.family << ": " << result.promise << '\n';
    if (!result.verdict.seen.empty()) out << "          " << result.verdict.seen << '\n';
    out.flush();
}

void writeTotals(std::ostream& out, const std::vector<CheckResult>& results) {
    writeAgain(out, results, Outcome::Skipped, "Untried");
    writeAgain(out, results, Outcome::Failed, "Broken");
    out << '\n'
        << countOf(results, Outcome::Passed) << " passed, " << countOf(results, Outcome::Failed)
        << " failed, " << countOf(results, Outcome::Skipped) << " untried";
    if (const auto count = countOf(results, Outcome::Inapplicable); count > 0)
        out << ", " << count << " not for this Mac";
    out << std::endl;
}

int exitStatus(const std::vector<CheckResult>& results) {
    constexpr int everythingKept = 0, somethingBroken = 1, somethingUntried = 3;
    if (countOf(results, Outcome::Failed) > 0) return somethingBroken;
    const bool isComplete = !results.empty() && countOf(results, Outcome::Skipped) == 0;
    return isComplete ? everythingKept : somethingUntried;
}

Task<int> selfCheck(Platform platform, SelfCheckSetup setup, std::ostream* out) {
    writeHead(*out, platform, setup.architecture);
    const auto results = co_await runChecks(platform, allChecks(setup.surroundings), setup.scope,
                                            [out](const CheckResult& result) { writeResult(*out, result); });
    if (setup.scope == Scope::Guided) *out << '\n' << pageForTheEyes();
    writeTotals(*out, results);
    co_return exitStatus(results);
}

} // namespace tavrin::seam_check
