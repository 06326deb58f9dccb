#include "concurrency/virtual_scheduler.h"
#include "concurrency/waits.h"
#include "hiding/hiding_controller.h"
#include "support/counting_defaults.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using Lines = std::vector<std::string>;

/// Notes what it is told and answers as the test decides; preparing and confirming take half a second, in
/// which something newer may overtake them.
class ScriptedMechanism final : public HidingMechanism {
  public:
    Task<bool> ensureLayout() override { co_return true; }

    Task<bool> prepare() override {
        log.push_back("prepare");
        if (co_await sleepFor(Seconds{0.5}) == Wake::CutShort) co_return false;
        co_return isPrepared;
    }

    std::optional<std::string> refusal() const override { return reason; }

    void hideNow() override { log.push_back("hide"); }

    Task<std::expected<void, std::string>> confirmHidden() override {
        if (co_await sleepFor(Seconds{0.5}) == Wake::CutShort) co_return std::unexpected("cut short");
        if (isConfirmed) co_return std::expected<void, std::string>();
        co_return std::unexpected("not confirmed");
    }

    void didHide() override { log.push_back("hidden"); }

    void reveal() override { log.push_back("reveal"); }

    void adaptToScreens() override { log.push_back("adapt"); }

    Task<bool> arrangeForApply() override { co_return false; }

    std::optional<std::string> obstacleToPlacing() const override { return std::nullopt; }

    bool placesByPosition() const override { return true; }

    bool isPrepared = true;
    bool isConfirmed = true;
    std::optional<std::string> reason;
    Lines log;
};

class HidingControllerTest : public testing::Test {
  protected:
    void request() { hiding.requestCollapse(Persist::Yes, OnFailure::ShowConfiguration); }

    void wait(double seconds) { scheduler.advance(Seconds{seconds}); }

    bool startsCollapsed() const { return settings.boolean(Settings::shouldStartCollapsedKey); }

    std::optional<std::string> message() const { return failure.published().get(); }

    VirtualScheduler scheduler;
    CountingDefaults defaults;
    Settings settings{defaults};
    BarActivity activity;
    FailureMessage failure;
    ScriptedMechanism mechanism;
    HidingController hiding{scheduler, settings, activity, mechanism, failure};
    int failures = 0;
    Subscription failing = hiding.onFailed([this] { ++failures; });
};

TEST_F(HidingControllerTest, isCollapsedAtOnceAndStoredOnceConfirmed) {
    request();
    wait(0.6);
    EXPECT_TRUE(activity.isCollapsed.get());
    EXPECT_FALSE(startsCollapsed());
    wait(0.5);
    EXPECT_TRUE(startsCollapsed());
    EXPECT_EQ(mechanism.log, (Lines{"prepare", "hide", "hidden"}));
    hiding.toggleCollapse();
    EXPECT_FALSE(activity.isCollapsed.get());
    EXPECT_FALSE(startsCollapsed());
    EXPECT_EQ(mechanism.log.back(), "reveal");
}

TEST_F(HidingControllerTest, aHideThatIsNotConfirmedIsUndoneAndTold) {
    mechanism.isConfirmed = false;
    request();
    wait(2);
    EXPECT_FALSE(activity.isCollapsed.get());
    EXPECT_FALSE(startsCollapsed());
    EXPECT_EQ(message(), "not confirmed");
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(mechanism.log, (Lines{"prepare", "hide", "reveal"}));
}

TEST_F(HidingControllerTest, aRevealDuringAHideWinsAndIsNoFailure) {
    request();
    wait(0.6);
    hiding.expand(Persist::No);
    wait(2);
    EXPECT_FALSE(activity.isCollapsed.get());
    EXPECT_FALSE(startsCollapsed());
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(mechanism.log, (Lines{"prepare", "hide", "reveal"}));
}

TEST_F(HidingControllerTest, aHideThatIsCutShortIsUndoneAndNoFailure) {
    settings.setBoolean(Settings::shouldStartCollapsedKey, true);
    request();
    wait(0.6);
    hiding.cancelRequests();
    wait(2);
    EXPECT_FALSE(activity.isCollapsed.get());
    EXPECT_TRUE(startsCollapsed()) << "the choice stays";
    EXPECT_EQ(message(), std::nullopt);
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(mechanism.log, (Lines{"prepare", "hide", "reveal"}));
}

TEST_F(HidingControllerTest, aRefusalTouchesNothing) {
    mechanism.reason = "Not now.";
    request();
    wait(2);
    EXPECT_EQ(mechanism.log, Lines{"prepare"});
    EXPECT_EQ(message(), "Not now.");
    EXPECT_EQ(failures, 1);
    hiding.requestCollapse(Persist::Yes, OnFailure::StayQuiet);
    wait(2);
    EXPECT_EQ(failures, 1);
}

TEST_F(HidingControllerTest, onlyTheNewestRequestHides) {
    request();
    wait(0.2);
    request();
    wait(0.4);
    EXPECT_FALSE(activity.isCollapsed.get()) << "the first was to hide by now";
    wait(1);
    EXPECT_EQ(mechanism.log, (Lines{"prepare", "prepare", "hide", "hidden"}));
}

TEST_F(HidingControllerTest, aHideThatDoesHarmIsUndone) {
    request();
    wait(2);
    mechanism.mustReveal.emit("Our control has gone.");
    EXPECT_FALSE(activity.isCollapsed.get());
    EXPECT_TRUE(startsCollapsed()) << "the choice stays";
    EXPECT_EQ(message(), "Our control has gone.");
    EXPECT_EQ(failures, 1);
}

} // namespace
} // namespace tavrin
