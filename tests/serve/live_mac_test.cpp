#include "app/app_delegate.h"
#include "serve/live_mac.h"
#include "serve/serve.h"
#include "support/tavrin_mac.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::Seconds;

/// The clock that a real one would be; it moves when the test says so.
class LiveMacTest : public testing::Test {
  protected:
    LiveMacTest() { EXPECT_TRUE(mac_.show("notched-laptop", std::nullopt)); }

    json command(const json& given) { return mac_.command(given); }

    json look() { return command({{"do", "look"}}); }

    std::string nextEvent() {
        std::string event;
        EXPECT_EQ(listener_->next(event, std::chrono::milliseconds(0)), Broadcast::Listener::Wait::Event);
        return event;
    }

    int events() {
        std::string event;
        int count = 0;
        while (listener_->next(event, std::chrono::milliseconds(0)) == Broadcast::Listener::Wait::Event)
            ++count;
        return count;
    }

    std::expected<std::unique_ptr<ModelledMac>, std::string> start(DesktopFile desktop) {
        if (failures_ > 0 && failures_--) return std::unexpected("The profile is in use.");
        MacOptions options;
        options.desktop = std::move(desktop);
        options.program = {tavrinBundle, "Tavrin", "Version 0"};
        return ModelledMac::start(
            std::move(options), [](tavrin::Platform& platform) { return tavrin::makeAppDelegate(platform); });
    }

    tavrin::VirtualScheduler clock_;
    Broadcast broadcast_;
    int failures_ = 0; // of the starts to come
    LiveMac mac_{clock_, broadcast_, builtInChoices(),
                 [this](DesktopFile desktop) { return start(std::move(desktop)); }};
    std::shared_ptr<Broadcast::Listener> listener_ = broadcast_.join();
};

TEST_F(LiveMacTest, followsTheClock) {
    const double before = look()["time"];
    clock_.advance(Seconds{10});
    EXPECT_NEAR(look()["time"].get<double>() - before, 10, 0.01);
    EXPECT_EQ(command({{"do", "wait"}, {"seconds", 100}})["ok"], true);
    clock_.advance(Seconds{1});
    EXPECT_NEAR(look()["time"].get<double>() - before, 111, 0.01)
        << "time goes on after a wait, it doesn't stand still";
}

TEST_F(LiveMacTest, keepsTimeHoweverLongNothingIsDue) {
    auto& scheduler = mac_.modelled().mac().scheduler();
    ASSERT_EQ(command({{"do", "settle"}})["ok"], true);
    const double before = look()["time"];
    clock_.advance(Seconds{20});
    EXPECT_NEAR(look()["time"].get<double>() - before, 20, 0.01);
    bool hasCome = false;
    scheduler.callAfter(Seconds{12}, [&] { hasCome = true; });
    (void)look();
    clock_.advance(Seconds{11.9});
    EXPECT_FALSE(hasCome);
    clock_.advance(Seconds{0.2});
    EXPECT_TRUE(hasCome);
}

TEST_F(LiveMacTest, letsTimeGoInWhichTheProcessWasStopped) {
    ASSERT_EQ(command({{"do", "settle"}})["ok"], true);
    int ticks = 0;
    mac_.modelled().mac().scheduler().callEvery(Seconds{1}, [&] { ++ticks; });
    (void)look();
    clock_.spend(Seconds{3600});
    clock_.advance(Seconds{0.5});
    EXPECT_GE(ticks, 1);
    EXPECT_LE(ticks, 4);
}

TEST_F(LiveMacTest, doesNothingWhileNothingIsDue) {
    ASSERT_EQ(command({{"do", "set"}, {"trusted", true}})["ok"], true);
    clock_.advance(Seconds{60});
    // The hint glows until the control is clicked, and what that opens is closed again.
    ASSERT_EQ(command({{"do", "click"}, {"item", tavrinBundle}, {"index", 1}})["ok"], true);
    clock_.advance(Seconds{60});
    ASSERT_EQ(command({{"do", "click"}, {"at", {300, 600}}})["ok"], true);
    clock_.advance(Seconds{60});
    (void)events();
    clock_.advance(Seconds{3600});
    EXPECT_EQ(events(), 0);
    EXPECT_EQ(clock_.nextDue(), std::nullopt);
}

TEST_F(LiveMacTest, tellsOfWhatHappensByItself) {
    clock_.advance(Seconds{1});
    (void)events();
    ASSERT_EQ(command({{"do", "set"}, {"trusted", true}})["ok"], true);
    clock_.advance(Seconds{30});
    std::string all;
    std::string event;
    while (listener_->next(event, std::chrono::milliseconds(0)) == Broadcast::Listener::Wait::Event)
        all += event;
    EXPECT_NE(all.find("chevron"), std::string::npos) << "Tavrin's control came";
    EXPECT_NE(all.find(R"("kind":"stored")"), std::string::npos);
    EXPECT_NE(all.find("Accessibility may be used"), std::string::npos);
}

TEST_F(LiveMacTest, takesAnotherMacInItsPlace) {
    (void)events();
    EXPECT_EQ(command({{"do", "desktop"}, {"name", "two-displays"}, {"major", 27}})["ok"], true);
    EXPECT_TRUE(nextEvent().starts_with("event: whole\n"));
    EXPECT_EQ(look()["screens"].size(), 2U);
    EXPECT_EQ(mac_.modelled().mac().version().major, 27);
    for (const json& wrong : {json{{"do", "desktop"}}, json{{"do", "desktop"}, {"name", "nowhere"}},
                              json{{"do", "desktop"}, {"name", "two-displays"}, {"major", "27"}},
                              json{{"do", "desktop"}, {"name", "two-displays"}, {"major", 1e300}}}) {
        const auto reply = command(wrong);
        EXPECT_EQ(reply["ok"], false) << wrong;
        EXPECT_TRUE(reply["error"].get<std::string>().ends_with(".")) << reply;
    }
    EXPECT_EQ(look()["screens"].size(), 2U);
}

TEST_F(LiveMacTest, startsThePresentMacAgainWhenAnotherCannotStart) {
    failures_ = 1;
    EXPECT_EQ(command({{"do", "desktop"}, {"name", "two-displays"}})["error"], "The profile is in use.");
    EXPECT_EQ(look()["screens"].size(), 1U);
    const double before = look()["time"];
    clock_.advance(Seconds{5});
    EXPECT_NEAR(look()["time"].get<double>() - before, 5, 0.01);
}

TEST_F(LiveMacTest, withoutAMacEveryCommandIsToldWhy) {
    failures_ = 2;
    EXPECT_EQ(command({{"do", "desktop"}, {"name", "two-displays"}})["ok"], false);
    clock_.advance(Seconds{60});
    for (const json& given : {json{{"do", "look"}}, json{{"do", "wait"}, {"seconds", 1}}, json(3),
                              json{{"do", "relaunch"}, {"bundle", "com.sample.jchat"}}})
        EXPECT_EQ(command(given)["error"], "The profile is in use.") << given;
    EXPECT_EQ(command({{"do", "desktop"}, {"name", "two-displays"}})["ok"], true);
    EXPECT_EQ(look()["screens"].size(), 2U);
}

TEST_F(LiveMacTest, launchesAgainWhatWasQuit) {
    const std::string bundle = "com.sample.jchat";
    const auto bar = [&] { return look()["menuBar"].dump(); };
    ASSERT_NE(bar().find(bundle), std::string::npos);
    EXPECT_EQ(command({{"do", "relaunch"}, {"bundle", bundle}})["error"], "That application runs already.");
    EXPECT_EQ(command({{"do", "set"}, {"quit", bundle}})["ok"], true);
    EXPECT_EQ(bar().find(bundle), std::string::npos);
    EXPECT_EQ(command({{"do", "relaunch"}, {"bundle", bundle}})["ok"], true);
    clock_.advance(Seconds{1});
    EXPECT_NE(bar().find(bundle), std::string::npos);
    EXPECT_EQ(command({{"do", "relaunch"}, {"bundle", "org.nobody"}})["ok"], false);
}

} // namespace
} // namespace mac_model
