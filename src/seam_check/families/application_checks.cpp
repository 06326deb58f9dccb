#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/presentation.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"
#include "views/view_builders.h"

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
    const bool isGranted = co_await comesTrue(platform, [&] { return heard > 0; }, 1s);
    if (!isGranted) application.activateIgnoringOthers();
    (void)co_await comesTrue(platform, [&] { return heard > 0; }, 2s);
    Findings findings;
    findings.expect(heardByLeaver == 0, "one who had unsubscribed was told");
    findings.expect(isOnMain, "it was told off the main thread");
    findings.expect(heard == 1, "it was told " + std::to_string(heard) + " times");
    findings.expect(application.isActive(), "it says that it isn't active");
    co_return findings.verdict(isGranted ? "The program became active when it asked."
                                         : "The program became active when it insisted.");
}

Task<Verdict> keysComeAndGo(Platform platform) {
    auto& application = platform.application;
    int released = 0;
    const auto observation = application.onKeysReleased([&] { ++released; });
    auto window = platform.presentation.makeWindow("Self-check of Tavrin", [] {});
    window->setContent(text("Self-check of Tavrin"));
    application.activateIgnoringOthers();
    window->makeKeyAndOrderFront();
    Findings findings;
    findings.expect(co_await comesTrue(
                        platform, [&] { return application.takesKeys(); }, 2s),
                    "its window doesn't take the keys");
    released = 0;
    window->close();
    findings.expect(co_await comesTrue(
                        platform, [&] { return released > 0; }, 2s),
                    "it isn't told that the window has let go of the keys");
    findings.expect(!application.takesKeys(), "it takes keys without a window");
    co_return findings.verdict("A window took the keys, and let go of them when it closed.");
}

} // namespace

std::vector<Check> applicationChecks() {
    constexpr auto family = "application";
    return {
        reads(family, "The program knows its process, its bundle identifier and its version.", knowsItself),
        changes(family, "Who subscribed hears once that the program has become active.", activationIsHeard),
        changes(family, "The program has the keys while it is active and a window of it is open.",
                keysComeAndGo),
    };
}

} // namespace tavrin::seam_check
