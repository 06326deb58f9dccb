#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

/// In mid-drag of the first item.
TavrinMac carryingAnItem() {
    auto mac = started(controlInMidBar({wifi, sound}));
    apply(mac);
    waitForCarriedItem(mac);
    return mac;
}

void expectStopped(TavrinMac& mac) {
    EXPECT_FALSE(mac.shows("Stop"));
    EXPECT_EQ(ownerOfCarriedItem(mac), "");
    EXPECT_EQ(mac.look()["pointer"]["buttons"], json::array());
    mac.events();
    mac.wait(10);
    EXPECT_TRUE(mac.events()["events"].empty());
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_FALSE(showsPart(mac, "Couldn’t apply "));
}

TEST(PersonDuringApply, stopsItWhileAnItemIsCarried) {
    auto mac = carryingAnItem();
    mac.done({{"do", "down"}, {"at", middleOf(mac.find("Stop").at(0)["frame"])}});
    mac.wait(0.15);
    mac.done({{"do", "up"}}); // wherever the pointer is by now
    expectStopped(mac);
    EXPECT_TRUE(mac.shows("Apply and Hide"));
}

TEST(PersonDuringApply, opensTheMenuOfTheControlWhileAnItemIsCarried) {
    auto mac = carryingAnItem();
    mac.rightClickItem(tavrinBundle);
    mac.wait(2);
    EXPECT_TRUE(mac.shows("Configure Items…"));
    expectStopped(mac);
}

TEST(PersonDuringApply, stopsItByAnyPressWhileAnItemIsCarried) {
    for (const double sooner : {0.02, 0.06, 0.15}) {
        auto mac = carryingAnItem();
        mac.wait(sooner);
        mac.press("Hide Spotlight");
        EXPECT_FALSE(isStoredAsHidden(mac, spotlight)) << "the pointer is with the item";
        mac.wait(0.3);
        expectStopped(mac);
        mac.press("Hide Spotlight");
        EXPECT_TRUE(isStoredAsHidden(mac, spotlight));
    }
}

TEST(PersonDuringApply, hasTheButtonBackWhenAccessIsTakenAwayInMidDrag) {
    auto mac = carryingAnItem();
    mac.set("trusted", false);
    mac.wait(1);
    mac.done({{"do", "click"}, {"at", middleOf(mac.look()["menus"].at(1)["frame"])}});
    EXPECT_TRUE(mac.look().contains("openMenu"));
}

TEST(PersonDuringApply, movesARowBetweenTwoDrags) {
    auto mac = carryingAnItem();
    for (int i = 0; i < 100 && !mac.look()["pointer"]["buttons"].empty(); ++i) mac.wait(0.01);
    mac.wait(0.25);
    ASSERT_TRUE(mac.shows("Stop"));
    mac.press("Hide Spotlight");
    EXPECT_TRUE(isStoredAsHidden(mac, spotlight));
    waitForApply(mac);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump().substr(0, 2000);
}

TEST(PersonDuringApply, findsStopWhereItWas) {
    constexpr int enough = 12; // for the window to stand away from the edge of the screen
    auto mac = started(crowdOnTheVisibleSide(enough));
    apply(mac);
    mac.wait(0.1);
    const auto stop = mac.find("Stop").at(0)["frame"];
    const auto controlAtFirst = mac.control()["frame"];
    for (int i = 0; i < 25; ++i) {
        mac.wait(0.1);
        ASSERT_EQ(mac.find("Stop").at(0)["frame"], stop) << i;
    }
    ASSERT_NE(mac.control()["frame"], controlAtFirst);
    mac.done({{"do", "click"}, {"at", middleOf(stop)}});
    mac.wait(0.1); // it may have been pressed while an item was carried
    EXPECT_FALSE(mac.shows("Stop"));
    const auto window = mac.surfacesOf(tavrinBundle).back();
    EXPECT_EQ(window["arrowX"], middleOf(mac.control()["frame"])[0]) << "it is with its control again";
}

} // namespace
} // namespace mac_model
