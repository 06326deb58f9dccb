#include "concurrency/waits.h"
#include "platform/application.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

bool isIdentifierCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

Verdict knowsItself(const Platform& platform) {
    const auto& application = platform.application;
    const auto identifier = application.bundleIdentifier();
    const auto version = application.displayVersion();
    Findings findings;
    findings.expect(application.processIdentifier() > 0, "the process has no identifier");
    findings.expect(application.processIdentifier() == application.processIdentifier(),
                    "the process identifier changes");
    findings.expect(identifier.contains('.') && std::ranges::all_of(identifier, isIdentifierCharacter),
                    quoted(identifier) + " is no bundle identifier");
    findings.expect(std::ranges::any_of(version, [](char c) { return c >= '0' && c <= '9'; }),
                    quoted(version) + " tells no version");
    return findings.verdict(identifier + ", " + version + ".");
}

Task<Verdict> activationIsHeard(Platform platform) {
    auto& application = platform.application;
    int heard = 0;
    int heardByLeaver = 0;
    bool isOnMain = true;
    const auto stays = application.onDidBecomeActive([&] {
        ++heard;
        isOnMain = isOnMain && platform.scheduler.isMainThread();
    });
    auto leaves = application.onDidBecomeActive([&] { ++heardByLeaver; });
    leaves.cancel();
    application.setActivationPolicy(ActivationPolicy::Accessory);
    application.activate();
    (void)co_await comesTrue(platform, [&] { return heard > 0; }, 2s);
    Findings findings;
    findings.expect(heardByLeaver == 0, "one who had unsubscribed was told");
    findings.expect(isOnMain, "it was told off the main thread");
    findings.expect(heard <= 1, "it was told " + std::to_string(heard) + " times");
    if (findings.areNone() && heard == 0)
        co_return skipped("macOS did not make the program the active application; it may decline.");
    co_return findings.verdict("The program became active.");
}

} // namespace

std::vector<Check> applicationChecks() {
    constexpr auto family = "application";
    return {
        reads(family, "The program knows its process, its bundle identifier and its version.", knowsItself),
        changes(family, "Who subscribed hears once that the program has become active.", activationIsHeard),
    };
}

} // namespace tavrin::seam_check
