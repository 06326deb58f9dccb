#include "seam_check/report.h"

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/words.h"

#include <algorithm>

namespace tavrin::seam_check {

namespace {

std::string_view word(Outcome outcome) {
    switch (outcome) {
    case Outcome::Passed:
        return "passed ";
    case Outcome::Failed:
        return "FAILED ";
    case Outcome::Skipped:
        return "skipped";
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

} // namespace

void writeHead(std::ostream& out, const Platform& platform, std::string_view architecture) {
    const auto version = platform.workspace.operatingSystemVersion();
    out << "Self-check of Tavrin, " << platform.application.displayVersion() << '\n';
    out << "macOS " << version.major << '.' << version.minor << ", " << architecture << '\n';
    for (const auto& screen : platform.screens.screens()) writeScreen(out, screen);
    out << "Accessibility: " << (platform.accessibility.isTrusted() ? "allowed" : "not allowed") << "\n\n";
}

void writeResult(std::ostream& out, const CheckResult& result) {
    out << word(result.verdict.outcome) << "  " << result.family << ": " << result.promise << '\n';
    if (!result.verdict.seen.empty()) out << "         " << result.verdict.seen << '\n';
    out.flush();
}

void writeTotals(std::ostream& out, const std::vector<CheckResult>& results) {
    out << '\n';
    for (const auto& result : results)
        if (result.verdict.outcome == Outcome::Failed) writeResult(out, result);
    out << countOf(results, Outcome::Passed) << " passed, " << countOf(results, Outcome::Failed)
        << " failed, " << countOf(results, Outcome::Skipped) << " skipped" << std::endl;
}

int exitStatus(const std::vector<CheckResult>& results) {
    return countOf(results, Outcome::Failed) == 0 && !results.empty() ? 0 : 1;
}

Task<int> selfCheck(Platform platform, Scope scope, std::string_view architecture, std::ostream* out) {
    writeHead(*out, platform, architecture);
    const auto results = co_await runChecks(platform, allChecks(), scope,
                                            [out](const CheckResult& result) { writeResult(*out, result); });
    writeTotals(*out, results);
    co_return exitStatus(results);
}

} // namespace tavrin::seam_check
