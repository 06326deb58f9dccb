#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

TEST(Applying, movesWhatIsOnTheWrongSideAndHides) {
    auto mac = started(controlInMidBar({wifi, sound}));
    openConfigure(mac);
    EXPECT_TRUE(showsPart(mac, " items will move"));
    mac.press("Apply and Hide");
    const auto pointer = mac.look()["pointer"]["at"];
    bool sawProgress = false;
    for (int i = 0; i < 1200 && (i == 0 || mac.shows("Stop")); ++i) {
        sawProgress = sawProgress || mac.shows("Placing Wi-Fi (attempt 1)…");
        mac.wait(0.1);
    }
    mac.wait(0.5);
    EXPECT_TRUE(sawProgress);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump(1).substr(0, 3000);
    EXPECT_FALSE(mac.shows("Menu Bar Items"))
        << "the window shows an expanded bar; it goes when the bar hides";
    expectPointerIsFree(mac, pointer);
    clickControlAndWait(mac);
    EXPECT_FALSE(isRightOfControl(mac, "com.apple.menuextra.wifi"));
    EXPECT_TRUE(isRightOfControl(mac, "notes-item"))
        << "what is to be shown has moved out of the hidden side";
    EXPECT_EQ(storedHidden(mac).size(), 2u);
}

TEST(Applying, whenEverythingIsInPlacePostsNothing) {
    auto mac = started(trustedMac("classic-display"), 4);
    answerHint(mac);
    mac.events();
    applyAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.events()["events"].empty());
}

TEST(Applying, whileHiddenRevealsFirst) {
    auto mac = started(controlInMidBar({wifi}));
    applyAndWait(mac);
    ASSERT_TRUE(isCollapsed(mac));
    openConfigure(mac);
    mac.press("Show Wi-Fi");
    mac.press("Apply and Hide");
    waitForApply(mac);
    clickControlAndWait(mac);
    EXPECT_TRUE(isRightOfControl(mac, "com.apple.menuextra.wifi"));
}

TEST(Applying, refusedDragsAreTriedAgainAndThenReported) {
    auto mac = started(controlInMidBar({wifi, sound, spotlight}));
    openConfigure(mac);
    for (const auto& item : {"Show Sound", "Show Spotlight"}) mac.press(item);
    mac.set("refuseDrags", "com.apple.controlcenter");
    const auto chosen = storedHidden(mac);
    mac.press("Apply and Hide");
    bool sawThird = false;
    for (int i = 0; i < 2000 && (i == 0 || mac.shows("Stop")); ++i) {
        sawThird = sawThird || mac.shows("Placing Wi-Fi (attempt 3)…");
        mac.wait(0.1);
    }
    EXPECT_TRUE(sawThird);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(showsPart(mac, "Hide Wi-Fi: macOS kept it on the visible side."));
    EXPECT_EQ(storedHidden(mac), chosen);
    EXPECT_EQ(mac.look()["pointer"]["buttons"], json::array());
}

/// A bar in which each of two processes under one bundle identifier has an item, both left of the control.
TavrinMacOptions twins() {
    auto options = crowdOnTheVisibleSide(3);
    auto desktop = json::parse(options.desktopJson);
    for (const int left : {1, 2}) desktop["applications"][left]["bundleIdentifier"] = "org.example.twin";
    desktop["defaults"][tavrinBundle] = setUp({}, {{"NSStatusItem Preferred Position Skerrow.Main.v1", 120}});
    options.desktopJson = desktop.dump();
    return options;
}

TEST(Applying, tellsTheItemsOfTwoProcessesUnderOneBundleApart) {
    TavrinMac mac(twins());
    mac.wait(2);
    applyAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump().substr(0, 2000);
    const auto items = mac.itemsOf("org.example.twin");
    ASSERT_EQ(items.size(), 2u);
    for (const auto& item : items) {
        EXPECT_GT(item["frame"][0], mac.control()["frame"][0]);
        EXPECT_EQ(item["drawn"], true);
    }
}

TEST(Applying, followsTheListsWhileItRuns) {
    TavrinMac mac(controlInMidBar({wifi, sound}));
    mac.wait(2);
    apply(mac);
    for (int i = 0; i < 300 && !mac.shows("Placing Wi-Fi (attempt 1)…"); ++i) mac.wait(0.1);
    const auto perform = [&](const char* item, const char* action) {
        mac.done({{"do", "perform"}, {"text", item}, {"action", action}});
    };
    perform("Wi-Fi", "Move to Shown");      // while it is on its way
    perform("Spotlight", "Move to Hidden"); // which was in its place
    perform("Notes", "Move to Hidden");     // which was to be moved later
    waitForApply(mac);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump().substr(0, 2000);
    clickControlAndWait(mac);
    EXPECT_TRUE(isRightOfControl(mac, "com.apple.menuextra.wifi"));
    EXPECT_FALSE(isRightOfControl(mac, "notes-item"));
    for (const auto& item : mac.look()["menuBar"])
        if (item["owner"] == "com.apple.Spotlight") EXPECT_LT(item["frame"][0], mac.control()["frame"][0]);
}

TEST(Applying, forgetsTheFailureOfAnItemThatMayStayAfterAll) {
    TavrinMac mac(controlInMidBar({wifi, sound}));
    mac.wait(2);
    openConfigure(mac);
    mac.set("refuseDrags", "com.apple.controlcenter");
    mac.press("Apply and Hide");
    for (int i = 0; i < 300 && !mac.shows("Placing Wi-Fi (attempt 3)…"); ++i) mac.wait(0.1);
    mac.wait(4);
    mac.done({{"do", "perform"}, {"text", "Wi-Fi"}, {"action", "Move to Shown"}});
    waitForApply(mac);
    EXPECT_TRUE(showsPart(mac, "Hide Sound: "));
    EXPECT_FALSE(showsPart(mac, "Hide Wi-Fi: "));
}

TEST(Applying, needsAccess) {
    auto mac = started(controlInMidBar({wifi}));
    openConfigure(mac);
    mac.set("trusted", false);
    mac.press("Apply and Hide");
    EXPECT_TRUE(mac.shows("Grant Accessibility access before applying this configuration."));
    mac.wait(2);
    EXPECT_TRUE(mac.events()["events"].empty());
}

TEST(Applying, aRunInWhichDragsGetLostStillPlacesEveryItem) {
    auto mac = started(crowdOnTheVisibleSide(20));
    openConfigure(mac);
    EXPECT_TRUE(mac.shows("20 items will move"));
    mac.set("loseDrags", 10);
    mac.press("Apply and Hide");
    waitForApply(mac);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump().substr(0, 2000);
    clickControlAndWait(mac);
    for (const auto& item : mac.look()["menuBar"])
        if (item["owner"] != tavrinBundle)
            EXPECT_LT(item["frame"][0], mac.control()["frame"][0]) << item["owner"];
}

} // namespace
} // namespace mac_model
