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
