#include "concurrency/waits.h"
#include "seam/self_check_program.h"
#include "seam_check/options.h"

#include <algorithm>
#include <set>

namespace mac_model {
namespace {

using tavrin::Platform;
using tavrin::Task;
using tavrin::seam_check::Check;
using tavrin::seam_check::Outcome;
using tavrin::seam_check::Scope;
using tavrin::seam_check::Verdict;

constexpr int everythingKept = 0;
constexpr int somethingBroken = 1;
constexpr int somethingUntried = 3;

TEST(SeamContract, theModelledMacKeepsEveryPromise) {
    for (const auto& desktop : shippedDesktops) {
        if (desktop == "macos-27") continue; // its bar is too full for the items of the checks
        for (const bool isTrusted : {true, false}) {
            SCOPED_TRACE(desktop + (isTrusted ? ", trusted" : ", not trusted"));
            SelfCheck self;
            const auto mac = runOnMac(self, {.desktop = desktop,
                                             .changes = {{"accessibilityTrusted", isTrusted}},
                                             .model = {{"placement", "slow"}}});
            EXPECT_EQ(exitStatus(self.results), isTrusted ? everythingKept : somethingUntried)
                << self.report.str();
            EXPECT_EQ(self.count(Outcome::Failed), 0) << self.report.str();
            EXPECT_LE(self.count(Outcome::Skipped), isTrusted ? 0 : 7) << self.report.str();
            EXPECT_EQ(self.results.size(), self.checks.size());
            EXPECT_EQ(mac->defaults(), json::object()) << "something is left behind";
            EXPECT_EQ(mac->itemsOf(tavrinBundle), std::vector<json>{});
            mac->mac().program().terminate();
            mac->settle();
            EXPECT_EQ(mac->mac().program().leftovers(), std::vector<std::string>{});
        }
    }
}

bool dependsOnTheModel(std::string_view family) {
    return family == "status items" || family == "accessibility" || family == "application" ||
           family == "by hand";
}

TEST(SeamContract, everySettingOfTheModelIsOneThatAMacMayHave) {
    for (const auto& setting : uncertaintySettings)
        for (const auto value : setting.values.subspan(1)) { // the default has its turn above
            SCOPED_TRACE(std::string(setting.name) + " " + std::string(value));
            SelfCheck self;
            std::erase_if(self.checks, [](const auto& check) { return !dependsOnTheModel(check.family); });
            const auto mac = runOnMac(self, {.changes = {{"accessibilityTrusted", true}},
                                             .model = {{std::string(setting.name), std::string(value)}}});
            EXPECT_EQ(self.count(Outcome::Failed), 0) << self.report.str();
        }
}

TEST(SeamContract, whatStaysUntriedIsToldAndIsNoSuccess) {
    SelfCheck self;
    self.scope = Scope::ReadingOnly;
    const auto mac = runOnMac(self);
    EXPECT_EQ(exitStatus(self.results), somethingUntried) << self.report.str();
    EXPECT_EQ(mac->done({{"do", "events"}})["events"], json::array());
    EXPECT_EQ(mac->done({{"do", "defaults"}, {"domain", tavrin::seam_check::scratchDomain}})["values"],
              json::object());
    const auto report = self.report.str();
    const auto totals = report.substr(report.rfind("\nUntried:\n"));
    EXPECT_TRUE(totals.contains("--changes runs it.")) << totals;
    EXPECT_TRUE(totals.contains("--guided runs it.")) << totals;
}

TEST(SeamContract, aPersonWhoDoesNothingLeavesPromisesUntried) {
    SelfCheck self;
    self.isPersonThere = false;
    std::erase_if(self.checks, [](const auto& check) { return check.family != "by hand"; });
    const auto mac = runOnMac(self);
    EXPECT_EQ(self.count(Outcome::Skipped), 3) << self.report.str();
    EXPECT_EQ(exitStatus(self.results), somethingUntried);
    EXPECT_TRUE(self.report.str().contains("Nobody clicked within 30 s.")) << self.report.str();
}

TEST(SeamContract, promisesAreSentencesOfTheirOwn) {
    std::set<std::string_view> promises;
    for (const auto& check : tavrin::seam_check::allChecks()) {
        EXPECT_TRUE(promises.insert(check.promise).second) << check.promise;
        EXPECT_TRUE(check.promise.ends_with('.')) << check.promise;
    }
}

Task<Verdict> fails(Platform) {
    (void)std::string().at(1);
    co_return tavrin::seam_check::passed("");
}

Task<Verdict> neverEnds(Platform) {
    while (co_await tavrin::sleepFor(tavrin::Seconds{1}) == tavrin::Wake::Due) {
    }
    co_return tavrin::seam_check::passed("");
}

Verdict isFine(const Platform&) { return tavrin::seam_check::passed("Fine."); }

TEST(SeamContract, checksThatBreakOrHangAreFailuresAndTheRestGoesOn) {
    SelfCheck self;
    self.checks = {tavrin::seam_check::reads("test", "Breaks.", fails),
                   tavrin::seam_check::changes("test", "Hangs.", neverEnds),
                   tavrin::seam_check::reads("test", "Goes on.", isFine)};
    const auto mac = runOnMac(self);
    EXPECT_EQ(self.on("Breaks.").outcome, Outcome::Failed);
    EXPECT_EQ(self.on("Hangs.").seen, "It had not ended after 30 s and was given up.");
    EXPECT_EQ(self.on("Goes on.").outcome, Outcome::Passed);
    EXPECT_EQ(exitStatus(self.results), somethingBroken);
    EXPECT_TRUE(self.report.str().ends_with("1 passed, 2 failed, 0 untried\n")) << self.report.str();
    EXPECT_TRUE(self.report.str().contains(
        "Program: org.tavrin.Tavrin\nmacOS 26.1, model\nScreen: 1512 × 982 at (0, 0), scale 2"))
        << self.report.str();
}

TEST(SeamContract, optionsAreTakenOrRefusedWithASentence) {
    using tavrin::seam_check::parseOptions;
    EXPECT_EQ(parseOptions({})->scope, Scope::ReadingOnly);
    EXPECT_EQ(parseOptions({"--changes"})->scope, Scope::WithChanges);
    EXPECT_EQ(parseOptions({"--guided", "--changes"})->scope, Scope::Guided);
    EXPECT_TRUE(parseOptions({"--changes", "--help"})->wantsHelp);
    EXPECT_EQ(parseOptions({"--expect-kept", "a text"})->expected, "a text");
    EXPECT_FALSE(parseOptions({"--expect-kept"}));
    EXPECT_EQ(parseOptions({"--change"}).error(),
              "There is no option “--change”; --help lists those there are.");
}

} // namespace
} // namespace mac_model
