#include "scenarios/acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

TavrinMacOptions untrusted(std::map<std::string, std::string> model = {}) {
    TavrinMacOptions options;
    options.desktop = "notched-laptop";
    options.model = std::move(model);
    return options;
}

TEST(Onboarding, saysWhatToDoAndShowsNothingElse) {
    TavrinMac mac(untrusted());
    mac.wait(5);
    for (const char* text :
         {"Allow Tavrin to tidy your menu bar",
          "Tavrin needs Accessibility access to move other apps' menu bar items.", "Open System Settings",
          "Go to Privacy & Security", "Click Accessibility",
          "Turn on the Tavrin switch, or add Tavrin with +", "Enter your password if asked",
          "Tavrin already in the list but not working? Select it, remove it with the minus button, then add "
          "it again.",
          "Waiting for access. This window updates on its own."}) {
        EXPECT_TRUE(mac.shows(text)) << text;
    }
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["title"], "Welcome to Tavrin");
    EXPECT_TRUE(mac.itemsOf(tavrinBundle).empty());
    EXPECT_TRUE(mac.stats()["messages"].empty());
}

TEST(Onboarding, theSwitchInSystemSettingsStartsTavrinAfterItsFarewell) {
    for (const char* notice : {"prompt", "stale"}) {
        TavrinMac mac(untrusted({{"permissionNotice", notice}}));
        mac.wait(1);
        mac.press("Open System Settings");
        mac.wait(1);
        mac.press("Tavrin");
        const double pressed = mac.look()["time"];
        while (!mac.shows("Accessibility is on. Tavrin is starting in your menu bar.")) {
            ASSERT_LT(mac.look()["time"], pressed + 2.5) << notice;
            mac.wait(0.05);
        }
        mac.wait(1.5);
        EXPECT_TRUE(mac.itemsOf(tavrinBundle).empty());
        mac.wait(0.2);
        EXPECT_FALSE(mac.control().is_null());
        EXPECT_FALSE(mac.shows("Accessibility is on. Tavrin is starting in your menu bar."));
        mac.wait(3);
        EXPECT_TRUE(isCollapsed(mac));
        answerHint(mac);
        EXPECT_EQ(mac.stats()["timers"], 0) << "trusted, nothing is polled";
    }
}

TEST(Onboarding, manyChangesOfTheListAreLookedAtOnce) {
    TavrinMac mac(untrusted());
    mac.wait(0.1);
    for (int i = 0; i < 5; ++i) {
        mac.mac().permission().changeOtherEntry();
        mac.wait(0.06);
    }
    EXPECT_EQ(mac.stats()["tasks"], 1);
}

TEST(Onboarding, quittingEndsAtOnce) {
    TavrinMac mac(untrusted());
    mac.wait(1);
    mac.terminate();
    EXPECT_FALSE(mac.mac().program().isRunning());
    EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{});
}

TEST(Onboarding, closedByHandItComesBackWhenTavrinIsLaunchedAgain) {
    TavrinMac mac(untrusted());
    mac.wait(1);
    mac.press("close button");
    mac.wait(2);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    EXPECT_TRUE(mac.itemsOf(tavrinBundle).empty()) << "no item before there is access";
    EXPECT_TRUE(mac.mac().program().isRunning());
    mac.start();
    mac.wait(0.5);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
    mac.start();
    mac.wait(0.5);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u) << "it is brought to the front, not opened twice";
    mac.press("close button");
    mac.wait(1);
    mac.set("trusted", true);
    mac.wait(2);
    EXPECT_FALSE(mac.control().is_null()) << "a late grant starts Tavrin without a window";
}

TEST(Onboarding, closedDuringTheFarewellTavrinStartsOnce) {
    TavrinMac mac(untrusted());
    mac.wait(1);
    mac.set("trusted", true);
    mac.wait(1.5);
    mac.press("close button");
    mac.wait(0.1);
    EXPECT_EQ(mac.itemsOf(tavrinBundle).size(), 2u);
    mac.wait(3);
    EXPECT_EQ(mac.itemsOf(tavrinBundle).size(), 2u);
}

TEST(Onboarding, itemsThatGetTheirPlacesLateAreWaitedFor) {
    TavrinMac mac(untrusted());
    mac.set("arrangingTime", 0.3);
    mac.set("trusted", true);
    mac.wait(8);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
    EXPECT_EQ(storedText(mac, "Skerrow.statusItemAutosaveVersion"), "absent") << "nothing was rebuilt";
}

/// Its title in the menu bar has the name of one of the system's items.
TEST(Onboarding, aRunningClockIsNoItem) {
    auto mac = started(trustedMac("notched-laptop"), 0);
    mac.set("launch", {{"bundleIdentifier", "com.apple.clock"},
                       {"name", "Clock"},
                       {"policy", "regular"},
                       {"menuBar", {{{"title", "Battery"}, {"items", {{{"title", "About Batteries"}}}}}}}});
    mac.wait(8);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
    EXPECT_EQ(storedText(mac, "Skerrow.hiddenItemIdentifiers").find("com.apple.clock"), std::string::npos);
}

/// Access is taken away just before the scan, while the trust flag still tells of it.
TEST(Onboarding, aScanThatMacOSRefusesIsNoGroundForADefaultLayout) {
    for (const char* failure : {"apiDisabled", "timesOut"}) {
        auto options = trustedMac("notched-laptop");
        options.model = {{"permissionNotice", "stale"}, {"revokedAccess", failure}};
        auto mac = started(options, 0.45);
        mac.set("trusted", false);
        mac.wait(15);
        EXPECT_EQ(storedText(mac, "Skerrow.didPresentInitialConfiguration"), "absent") << failure;
        EXPECT_FALSE(isCollapsed(mac));
        mac.set("trusted", true);
        mac.wait(10);
        EXPECT_TRUE(isCollapsed(mac)) << "with access the default layout follows";
    }
}

TEST(Onboarding, aRefusedScanIsMadeAgainWhenTheTrustFlagTellsNothingNew) {
    auto mac = started(trustedMac("notched-laptop"), 0.45);
    mac.set("model", {{"permissionNotice", "stale"}});
    mac.set("trusted", false);
    mac.wait(0.3); // and back before the flag has told of it
    mac.set("trusted", true);
    mac.wait(10);
    EXPECT_TRUE(isCollapsed(mac));
}

} // namespace
} // namespace mac_model
