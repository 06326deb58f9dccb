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

TEST(SeamContract, theModelledMacKeepsEveryPromise) {
    for (const auto& desktop : shippedDesktops)
        for (const bool isTrusted : {true, false}) {
            SCOPED_TRACE(desktop + (isTrusted ? ", trusted" : ", not trusted"));
            SelfCheck self;
            const auto mac =
                runOnMac(self, {.desktop = desktop, .changes = {{"accessibilityTrusted", isTrusted}}});
            const auto skipped = std::ranges::count_if(
                self.results, [](const auto& one) { return one.verdict.outcome == Outcome::Skipped; });
            EXPECT_EQ(exitStatus(self.results), 0) << self.report.str();
            EXPECT_LE(skipped, isTrusted ? 1 : 5) << self.report.str();
            EXPECT_EQ(self.results.size(), self.checks.size());
            EXPECT_EQ(mac->defaults(), json::object()) << "something is left behind";
            EXPECT_EQ(mac->itemsOf(tavrinBundle), std::vector<json>{});
            mac->mac().program().terminate();
            mac->settle();
            EXPECT_EQ(mac->mac().program().leftovers(), std::vector<std::string>{});
        }
}

TEST(SeamContract, unlessAskedItChangesNothing) {
    SelfCheck self;
    self.scope = Scope::ReadingOnly;
    const auto mac = runOnMac(self);
    EXPECT_EQ(exitStatus(self.results), 0) << self.report.str();
    EXPECT_EQ(mac->done({{"do", "events"}})["events"], json::array());
    EXPECT_EQ(mac->done({{"do", "defaults"}, {"domain", "org.tavrin.seam-check.scratch"}})["values"],
              json::object());
    EXPECT_TRUE(self.report.str().contains("--changes runs it."));
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
    EXPECT_NE(exitStatus(self.results), 0);
    EXPECT_TRUE(self.report.str().ends_with("1 passed, 2 failed, 0 skipped\n")) << self.report.str();
    EXPECT_TRUE(self.report.str().contains("macOS 26.1, model\nScreen: 1512 × 982 at (0, 0), scale 2"))
        << self.report.str();
}

TEST(SeamContract, optionsAreTakenOrRefusedWithASentence) {
    using tavrin::seam_check::parseOptions;
    EXPECT_EQ(parseOptions({})->scope, Scope::ReadingOnly);
    EXPECT_EQ(parseOptions({"--changes"})->scope, Scope::WithChanges);
    EXPECT_TRUE(parseOptions({"--changes", "--help"})->wantsHelp);
    EXPECT_EQ(parseOptions({"--change"}).error(),
              "There is no option “--change”; --help lists those there are.");
}

} // namespace
} // namespace mac_model
