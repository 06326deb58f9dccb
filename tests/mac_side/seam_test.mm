// The seam check on the Mac side: over the modelled Mac by the tests of SeamContract, and here on GNUstep for
// those families that the modelled Mac keeps to itself there.
#include "app/app_delegate.h"
#include "concurrency/job.h"
#include "mac_side/mac_side_fixture.h"
#include "platform/event_monitors.h"
#include "platform/presentation.h"
#include "platform/visibility_service.h"
#include "seam_check/all_checks.h"
#include "seam_check/runner.h"
#include "support/tavrin_mac.h"

#include <map>
#include <set>
#include <string>
#include <typeinfo>

namespace mac_side {

namespace {

using seam_check::Check;
using seam_check::CheckResult;
using seam_check::Outcome;

/// Families of the platform that aren't the Mac side's own over the modelled Mac, with the reason, and
/// whether their promises are tried on GNUstep instead.
struct FamilyOfTheModel {
    std::string why;
    std::vector<Check> (*checksOnGnustep)() = nullptr;
};

const std::map<std::string, FamilyOfTheModel> familiesOfTheModel{
    {"scheduler", {"its time is virtual", seam_check::schedulerChecks}},
    {"presentation",
     {"the tests look at what it shows on the modelled screen", seam_check::presentationChecks}},
    {"visibility service", {"this macOS has none"}},
    {"randomness", {"the seed decides; no promise is made about it"}},
};

/// Promises of those that can't be seen to be kept here, with the reason.
const std::map<std::string, std::string> notOnGnustep{
    {"A popover of an item without a window isn't shown.", "the shim's status items always have a window"},
    {"A window that is told to opens below the menu bar, at the right.",
     "this machine's screen keeps no window off its menu bar"},
};

class NamesOfTheModelsFamilies {
  public:
    template <class Family>
    void look(const char* name, const Family& family) {
        if (!std::string(typeid(family).name()).contains("macos")) names.insert(name);
    }

    std::set<std::string> names;
};

std::set<std::string> familiesThatAreNotTheMacSides(const Platform& platform) {
    NamesOfTheModelsFamilies found;
    found.look("scheduler", platform.scheduler);
    found.look("application", platform.application);
    found.look("accessibility", platform.accessibility);
    found.look("defaults", platform.defaults);
    found.look("event monitors", platform.eventMonitors);
    found.look("events", platform.events);
    found.look("hot keys", platform.hotKeys);
    found.look("keyboard", platform.keyboard);
    found.look("login item", platform.loginItem);
    found.look("presentation", platform.presentation);
    found.look("randomness", platform.randomness);
    found.look("screens", platform.screens);
    found.look("status items", platform.statusItems);
    found.look("text", platform.text);
    found.look("visibility service", platform.visibilityService);
    found.look("window server", platform.windowServer);
    found.look("workspace", platform.workspace);
    return found.names;
}

Task<> running(Platform platform, std::vector<Check> checks, bool* hasEnded) {
    (void)co_await runChecks(platform, std::move(checks), seam_check::Scope::WithChanges,
                             [](const CheckResult& result) {
                                 const bool isPassed = result.verdict.outcome == Outcome::Passed;
                                 EXPECT_NE(isPassed, notOnGnustep.contains(result.promise))
                                     << result.promise << " " << result.verdict.seen;
                             });
    *hasEnded = true;
}

TEST(SeamOnTheMacSide, allFamiliesButThoseListedAreItsOwn) {
    std::set<std::string> seen;
    mac_model::TavrinMacOptions options;
    options.program = [&seen](Platform& platform) {
        seen = familiesThatAreNotTheMacSides(platform);
        return makeAppDelegate(platform);
    };
    mac_model::TavrinMac(std::move(options)).wait(1);
    std::set<std::string> listed;
    for (const auto& [family, reason] : familiesOfTheModel) listed.insert(family);
    EXPECT_EQ(seen, listed);
}

using SeamOnGnustep = MacSideTest;

TEST_F(SeamOnGnustep, keepsThePromisesOfTheFamiliesThatTheModelKeepsToItself) {
    for (const auto& [family, listed] : familiesOfTheModel) {
        if (!listed.checksOnGnustep) continue;
        bool hasEnded = false;
        const auto run = start(platform.scheduler, running(platform, listed.checksOnGnustep(), &hasEnded));
        for (int n = 0; n < 6 && !hasEnded; ++n) (void)until([&] { return hasEnded; });
        EXPECT_TRUE(hasEnded) << family;
    }
}

} // namespace

} // namespace mac_side
