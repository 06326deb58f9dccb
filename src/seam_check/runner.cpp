#include "seam_check/runner.h"

#include "concurrency/job.h"
#include "concurrency/waits.h"
#include "seam_check/words.h"

#include <exception>
#include <optional>
#include <string_view>
#include <utility>

namespace tavrin::seam_check {

namespace {

constexpr Seconds checkTimeMax{30};
constexpr Seconds personTimeMax{90}; // the person has a shorter limit of their own, with a sentence

Seconds timeMaxOf(const Check& check) { return check.effect == Effect::Asks ? personTimeMax : checkTimeMax; }

/// Why the check isn't run, if it isn't.
std::optional<std::string_view> reasonToSkip(Effect effect, Scope scope) {
    if (effect == Effect::Asks && scope != Scope::Guided) return "It takes a person; --guided runs it.";
    if (effect == Effect::Changes && scope == Scope::ReadingOnly)
        return "It changes something for a moment; --changes runs it.";
    return std::nullopt;
}

Task<Verdict> guarded(Check check, Platform platform) {
    try {
        co_return co_await check.body(platform);
    } catch (const std::exception& exception) {
        co_return failed("It ended with an exception: " + std::string(exception.what()) + ".");
    } catch (...) {
        co_return failed("It ended with an exception that is no std::exception.");
    }
}

Task<Verdict> verdictOf(Check check, Platform platform) {
    auto& scheduler = platform.scheduler;
    const auto timeMax = timeMaxOf(check);
    auto job = start(scheduler, guarded(std::move(check), platform));
    const auto alarm = scheduler.callAfter(timeMax, [&job] { job.cancel(); });
    auto verdict = co_await job.result();
    scheduler.cancelTimer(alarm);
    if (verdict) co_return std::move(*verdict);
    co_return failed("It had not ended after " + said(timeMax) + " and was given up.");
}

} // namespace

Task<std::vector<CheckResult>> runChecks(Platform platform, std::vector<Check> checks, Scope scope,
                                         std::function<void(const CheckResult&)> onResult) {
    std::vector<CheckResult> results;
    for (const auto& check : checks) {
        CheckResult result{std::string(check.family), std::string(check.promise), {}};
        if (const auto reason = reasonToSkip(check.effect, scope))
            result.verdict = skipped(std::string(*reason));
        else
            result.verdict = co_await verdictOf(check, platform);
        if (co_await isCancelled()) break;
        if (onResult) onResult(result);
        results.push_back(std::move(result));
    }
    co_return results;
}

} // namespace tavrin::seam_check
