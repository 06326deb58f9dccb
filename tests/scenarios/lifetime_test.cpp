#include "scenarios/acts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

const std::vector<std::string> nothing;

TEST(Lifetime, twoQuickQuitsRestoreOnceAndKeepTheChoice) {
    TavrinMac mac(trustedMac("notched-laptop", setUp()));
    const auto before = othersItems(mac);
    mac.wait(2);
    clickControlAndWait(mac);
    ASSERT_TRUE(isCollapsed(mac));
    mac.mac().program().terminate();
    mac.mac().program().terminate();
    mac.wait(1);
    EXPECT_FALSE(mac.mac().program().isRunning());
    EXPECT_EQ(othersItems(mac), before);
    EXPECT_EQ(mac.mac().program().leftovers(), nothing);
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");
}

TEST(Lifetime, quittingInMidHideLeavesTheBarWhole) {
    for (const double moment : {0.0, 0.02, 0.3, 0.7}) {
        TavrinMac mac(trustedMac("classic-display", setUp()));
        const auto before = othersItems(mac);
        mac.wait(2);
        mac.set("hang", "com.sample.sensors");
        clickControl(mac);
        mac.wait(moment);
        mac.terminate();
        mac.wait(3);
        EXPECT_FALSE(mac.mac().program().isRunning());
        EXPECT_EQ(othersItems(mac), before);
        EXPECT_EQ(mac.mac().program().leftovers(), nothing);
    }
}

TEST(Lifetime, aCrashAtAnyMomentLosesNoItemAndNoChoice) {
    for (int step = 0; step < 40; ++step) {
        TavrinMac mac(trustedMac("notched-laptop", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})));
        const auto before = othersItems(mac);
        mac.set("latency", {{"com.apple.controlcenter", 0.02}});
        mac.wait(0.05 * step);
        if (step > 30) clickControl(mac);
        const auto choice = storedText(mac, "Skerrow.shouldStartCollapsed");
        mac.crash();
        mac.wait(1);
        EXPECT_EQ(othersItems(mac), before) << step;
        EXPECT_EQ(mac.mac().program().leftovers(), nothing) << step;
        mac.start();
        mac.wait(4);
        EXPECT_EQ(isCollapsed(mac), choice == "true") << step;
    }
}

TEST(Lifetime, whatWasChosenOutlivesTheWholeMac) {
    const TemporaryFolder folder;
    auto options = trustedMac("classic-display");
    options.profile = folder.path();
    {
        auto mac = started(options, 4);
        answerHint(mac);
        EXPECT_TRUE(isCollapsed(mac));
    }
    auto mac = started(options, 4);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_FALSE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
}

TEST(Lifetime, launchingAgainOpensTheConfigureWindow) {
    auto mac = started(trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})), 3);
    ASSERT_TRUE(isCollapsed(mac));
    mac.start();
    mac.wait(0.5);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
    EXPECT_FALSE(isCollapsed(mac)) << "the window shows the whole menu bar";
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");
    mac.start();
    mac.wait(0.5);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);

    mac.key("escape");
    mac.wait(0.05);
    EXPECT_FALSE(isCollapsed(mac));
    mac.wait(0.1);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.mac().program().isRunning()) << "closing every window ends nothing";
}

TEST(Lifetime, reopeningTwiceWhileCollapsedStillRestores) {
    auto mac = started(trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})), 3);
    mac.start();
    mac.start();
    mac.wait(1);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
    mac.key("escape");
    mac.wait(1);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Lifetime, idleAndTrustedNothingTicks) {
    for (const auto& desktop : shippedDesktops) {
        TavrinMac mac(trustedMac(desktop, setUp({}, {{"Skerrow.shouldStartCollapsed", true}})));
        mac.wait(10);
        const auto before = mac.stats();
        EXPECT_EQ(before["timers"], 0) << desktop;
        EXPECT_EQ(before["tasks"], 0) << desktop;
        mac.wait(3600);
        EXPECT_EQ(mac.stats()["messages"], before["messages"]);
    }
}

} // namespace
} // namespace mac_model
