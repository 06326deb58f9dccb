#include "seam_check/runner.h"

#include "concurrency/job.h"
#include "concurrency/waits.h"
#include "seam_check/words.h"

#include <exception>
#include <utility>

namespace tavrin::seam_check {

namespace {

constexpr Seconds checkTimeMax{30};

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
    auto job = start(scheduler, guarded(std::move(check), platform));
    const auto alarm = scheduler.callAfter(checkTimeMax, [&job] { job.cancel(); });
    auto verdict = co_await job.result();
    scheduler.cancelTimer(alarm);
    if (verdict) co_return std::move(*verdict);
    co_return failed("It had not ended after " + said(checkTimeMax) + " and was given up.");
}

} // namespace

Task<std::vector<CheckResult>> runChecks(Platform platform, std::vector<Check> checks, Scope scope,
                                         std::function<void(const CheckResult&)> onResult) {
    std::vector<CheckResult> results;
    for (const auto& check : checks) {
        CheckResult result{std::string(check.family), std::string(check.promise), {}};
        if (check.effect == Effect::Changes && scope == Scope::ReadingOnly)
            result.verdict = skipped("It changes something for a moment; --changes runs it.");
        else
            result.verdict = co_await verdictOf(check, platform);
        if (co_await isCancelled()) break;
        if (onResult) onResult(result);
        results.push_back(std::move(result));
    }
    co_return results;
}

} // namespace tavrin::seam_check
