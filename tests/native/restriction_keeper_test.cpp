#include "concurrency/virtual_scheduler.h"
#include "native/restriction_keeper.h"
#include "support/fake_visibility_service.h"

#include <gtest/gtest.h>
#include <thread>

namespace tavrin {
namespace {

using Lines = std::vector<std::string>;

NativeVisibilityPlan plan(const std::string& bundle) { return {{bundle}, {0, 1}}; }

class RestrictionTest : public testing::Test {
  protected:
    using Failure = MenuBarVisibilityRestriction::Failure;

    static Task<> applying(MenuBarVisibilityRestriction& restriction, NativeVisibilityPlan plan,
                           Lines& outcomes) {
        const auto outcome = co_await restriction.apply(std::move(plan));
        outcomes.push_back(outcome ? "ok" : outcome.error().description());
    }

    static Task<> wanting(RestrictionKeeper& keeper, NativeVisibilityPlan plan, Lines& outcomes) {
        const auto outcome = co_await keeper.want(std::move(plan));
        if (!outcome)
            outcomes.push_back(outcome.error());
        else
            outcomes.push_back(*outcome == RestrictionKeeper::Granted::inForce ? "in force" : "superseded");
    }

    void apply(const std::string& bundle) {
        jobs.push_back(start(scheduler, applying(restriction, plan(bundle), outcomes)));
        wait(0);
    }

    void want(const std::string& bundle) {
        jobs.push_back(start(scheduler, wanting(keeper, plan(bundle), outcomes)));
        wait(0);
    }

    void wait(double seconds) { scheduler.advance(Seconds{seconds}); }

    void accept(std::size_t number) {
        service.accept(number);
        wait(0);
    }

    std::string inForce() const {
        const auto& active = restriction.activePlan();
        return active ? active->allowedBundleIdentifiers.front() : "";
    }

    VirtualScheduler scheduler;
    FakeVisibilityService service;
    MenuBarVisibilityRestriction restriction{scheduler, service};
    RestrictionKeeper keeper{scheduler, restriction};
    Lines outcomes;
    std::vector<Job<>> jobs;
};

TEST_F(RestrictionTest, liftsTheOldListAfterTheNewOneIsInForce) {
    apply("A");
    accept(1);
    apply("B");
    EXPECT_EQ(service.log, (Lines{"+A", "+B"}));
    EXPECT_EQ(inForce(), "A");
    accept(2);
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-A"}));
    EXPECT_EQ(inForce(), "B");
    EXPECT_EQ(outcomes, (Lines{"ok", "ok"}));
}

TEST_F(RestrictionTest, sendsNothingForThePlanInForce) {
    apply("A");
    accept(1);
    apply("A");
    EXPECT_EQ(service.log, (Lines{"+A"}));
    EXPECT_EQ(outcomes, (Lines{"ok", "ok"}));
}

TEST_F(RestrictionTest, takesAnotherOrderForAnotherPlan) {
    jobs.push_back(start(scheduler, applying(restriction, {{"A"}, {0, 1}}, outcomes)));
    wait(0);
    accept(1);
    jobs.push_back(start(scheduler, applying(restriction, {{"A"}, {1, 0}}, outcomes)));
    wait(0);
    EXPECT_EQ(service.log, (Lines{"+A", "+A"}));
}

TEST_F(RestrictionTest, tellsEachFailureAndKeepsTheOldList) {
    apply("A");
    accept(1);
    apply("B");
    service.reject(2, "no");
    wait(0);
    apply("C");
    wait(2.9);
    EXPECT_EQ(outcomes.size(), 2U);
    wait(0.1);
    service.makes = false;
    apply("D");
    service.isThere = false;
    apply("E");
    const std::string unavailable =
        "This macOS build does not expose the menu bar visibility interface Tavrin relies on.";
    EXPECT_EQ(outcomes,
              (Lines{"ok", "macOS refused to hide menu bar items: no",
                     "macOS did not confirm the menu bar change in time.", unavailable, unavailable}));
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-B", "+C", "-C"}));
    EXPECT_EQ(inForce(), "A");
}

TEST_F(RestrictionTest, ignoresAnAnswerAfterTheTimeOut) {
    apply("A");
    wait(3);
    accept(1);
    EXPECT_EQ(inForce(), "");
    EXPECT_EQ(outcomes, (Lines{"macOS did not confirm the menu bar change in time."}));
    accept(1);
    EXPECT_EQ(outcomes.size(), 1U) << "nor a second answer";
}

TEST_F(RestrictionTest, throwsAwayWhatARelaseHasOvertaken) {
    apply("A");
    restriction.release();
    accept(1);
    EXPECT_EQ(inForce(), "");
    EXPECT_EQ(service.log, (Lines{"+A", "-A"}));
    EXPECT_EQ(outcomes, (Lines{"ok"}));
}

TEST_F(RestrictionTest, keepsOnlyTheLaterOfTwo) {
    apply("A");
    apply("B");
    accept(2);
    accept(1);
    EXPECT_EQ(inForce(), "B");
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-A"}));
}

TEST_F(RestrictionTest, goesOnWhenNobodyWaitsAnyLonger) {
    apply("A");
    jobs.clear();
    EXPECT_TRUE(restriction.isInFlight());
    accept(1);
    EXPECT_EQ(inForce(), "A");
    EXPECT_FALSE(restriction.isInFlight());
}

TEST_F(RestrictionTest, takesTheAnswerFromAnyThread) {
    apply("A");
    std::thread([this] { service.accept(1); }).join();
    wait(0);
    EXPECT_EQ(inForce(), "A");
}

TEST_F(RestrictionTest, keeperSendsOneActivationAnAnswerForManyWishes) {
    want("A");
    for (const auto* bundle : {"B", "C", "D"}) want(bundle);
    EXPECT_EQ(service.log, (Lines{"+A"}));
    accept(1);
    EXPECT_EQ(service.log, (Lines{"+A", "+D"}));
    accept(2);
    EXPECT_EQ(inForce(), "D");
    EXPECT_EQ(outcomes, (Lines{"superseded", "superseded", "superseded", "in force"}));
}

TEST_F(RestrictionTest, keeperReturnsToThePlanInForceAfterAnotherInFlight) {
    want("A");
    accept(1);
    want("B");
    want("A");
    accept(2);
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-A", "+A"}));
    accept(3);
    EXPECT_EQ(inForce(), "A");
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-A", "+A", "-B"}));
}

TEST_F(RestrictionTest, keeperLiftsAtOnceAndLetsNothingLandAfterwards) {
    want("A");
    accept(1);
    want("B");
    keeper.wantNothing();
    EXPECT_FALSE(keeper.isRestricted());
    EXPECT_FALSE(keeper.isIdle()) << "something is still in flight";
    accept(2);
    EXPECT_EQ(inForce(), "");
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-A", "-B"}));
    EXPECT_TRUE(keeper.isIdle());
}

TEST_F(RestrictionTest, keeperTriesAnewAfterTheTimeOutOfAnOlderWish) {
    want("A"); // silent
    wait(1);
    keeper.wantNothing();
    wait(1);
    want("A");
    wait(1);
    ASSERT_EQ(service.answers.size(), 2U);
    accept(2);
    EXPECT_EQ(inForce(), "A");
    EXPECT_EQ(outcomes, (Lines{"superseded", "in force"}));
}

TEST_F(RestrictionTest, keeperEndsWithItsFailureUntilTheNextWish) {
    want("A");
    accept(1);
    want("B");
    service.reject(2, "no");
    wait(10);
    EXPECT_EQ(service.log, (Lines{"+A", "+B", "-B"}));
    EXPECT_EQ(outcomes, (Lines{"in force", "macOS refused to hide menu bar items: no"}));
    want("B");
    accept(3);
    EXPECT_EQ(inForce(), "B");
}

TEST_F(RestrictionTest, keeperRestrictsAnewForANewMenuBar) {
    want("A");
    accept(1);
    keeper.renew();
    wait(0);
    accept(2);
    EXPECT_EQ(service.log, (Lines{"+A", "-A", "+A"}));
    EXPECT_EQ(inForce(), "A");
}

TEST_F(RestrictionTest, keeperTellsOfEachChange) {
    int changes = 0;
    const auto observation = keeper.changed.subscribe([&] { ++changes; });
    want("A");
    EXPECT_EQ(changes, 0);
    accept(1);
    EXPECT_EQ(changes, 1);
    keeper.wantNothing();
    keeper.wantNothing();
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace tavrin
