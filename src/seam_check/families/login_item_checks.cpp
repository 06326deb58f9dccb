#include "platform/login_item.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"

#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

std::string said(LoginItemState state) {
    switch (state) {
    case LoginItemState::NotRegistered:
        return "not registered";
    case LoginItemState::Enabled:
        return "enabled";
    case LoginItemState::RequiresApproval:
        return "waiting for approval";
    case LoginItemState::NotFound:
        return "not found";
    }
    return "in a state that doesn't exist";
}

bool isRegistered(LoginItemState state) {
    return state == LoginItemState::Enabled || state == LoginItemState::RequiresApproval;
}

Verdict askingChangesNothing(const Platform& platform) {
    const auto first = platform.loginItem.state();
    const auto second = platform.loginItem.state();
    if (first != second) return failed("It is " + said(first) + ", and then " + said(second) + ".");
    return passed("It is " + said(first) + ".");
}

Task<Verdict> isTakenBack(Platform platform, LoginItemState registered) {
    const auto change = platform.loginItem.unregisterApplication();
    const auto isGone =
        co_await comesTrue(platform, [platform] { return !isRegistered(platform.loginItem.state()); }, 2s);
    if (isGone) co_return passed("It was " + said(registered) + " for a moment.");
    co_return failed("It stays " + said(platform.loginItem.state()) +
                     "; take this program out of System Settings › General › Login Items. " +
                     (change ? "It was told to be gone." : change.error()));
}

Task<Verdict> registeringIsKept(Platform platform) {
    auto& item = platform.loginItem;
    if (isRegistered(item.state())) co_return skipped("It starts at login, and stays so.");
    const auto change = item.registerApplication();
    const auto hasCome =
        co_await comesTrue(platform, [platform] { return isRegistered(platform.loginItem.state()); }, 2s);
    if (hasCome) co_return co_await isTakenBack(platform, item.state());
    if (change) co_return failed("It was told to be registered, and is " + said(item.state()) + ".");
    if (change.error().empty()) co_return failed("It was refused without a sentence.");
    co_return skipped("macOS declined: " + change.error());
}

} // namespace

std::vector<Check> loginItemChecks() {
    constexpr auto family = "login item";
    return {
        reads(family, "Asking whether the program starts at login changes nothing.", askingChangesNothing),
        changes(family, "The program is registered to start at login, and taken back.", registeringIsKept),
    };
}

} // namespace tavrin::seam_check
