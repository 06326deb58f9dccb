#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

constexpr const char* hint = "Your menu bar items are tucked away here. Click to choose which ones show.";

/// Nothing is configured, and some items are to be moved. The first scan has been denied.
TavrinMac freshAndDenied() {
    TavrinMac mac(
        trustedMac("classic-display", {{"NSStatusItem Preferred Position Skerrow.Main.v1", 430.5}}));
    mac.wait(0.3);
    mac.set("trusted", false);
    mac.wait(2);
    return mac;
}

/// Another height, which moves nothing.
void changeDisplay(TavrinMac& mac) { mac.set("screens", {{{"frame", {0, 0, 1920, 1200}}, {"scale", 1}}}); }

void waitForMoves(TavrinMac& mac) {
    const auto isMoving = [&] {
        for (const auto& event : mac.done({{"do", "events"}})["events"])
            if (event["type"] == "leftMouseDown") return true;
        return false;
    };
    for (int i = 0; i < 100; ++i) {
        if (isMoving()) return;
        mac.wait(0.1);
    }
    ADD_FAILURE() << "nothing is moved";
}

TEST(FirstRun, byALateScanOwesTheHintWhateverIsRefreshedMeanwhile) {
    auto mac = freshAndDenied();
    mac.set("trusted", true);
    waitForMoves(mac);
    changeDisplay(mac);
    mac.wait(30);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows(hint));
}

TEST(FirstRun, byALateScanOwesTheWindowWhateverIsRefreshedMeanwhile) {
    auto mac = freshAndDenied();
    mac.set("refuseDrags", "com.apple.controlcenter");
    mac.set("trusted", true);
    waitForMoves(mac);
    changeDisplay(mac);
    mac.wait(120);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(showsPart(mac, "Hide Wi-Fi: macOS kept it on the visible side."));
}

TEST(FirstRun, hidesInSpiteOfAPressWhileAnItemIsCarried) {
    auto mac = freshAndDenied();
    mac.set("trusted", true);
    waitForCarriedItem(mac);
    mac.done({{"do", "click"}, {"at", {700, 500}}});
    EXPECT_EQ(ownerOfCarriedItem(mac), "") << "letting go of the button puts the item down";
    mac.wait(30);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows(hint));
}

TEST(FirstRun, leavesAloneWhatTheUserHasConfiguredMeanwhile) {
    auto mac = freshAndDenied();
    mac.set("latency", {{"com.sample.sensors", 0.2}});
    mac.set("trusted", true);
    mac.done({{"do", "start"}});
    for (int i = 0; i < 100 && !mac.shows("Reading menu bar items…"); ++i) mac.wait(0.02);
    mac.press("Refresh menu bar items"); // one more scan, which leaves a moment for a choice
    for (int i = 0; i < 200 && !mac.shows("Wi-Fi"); ++i) mac.wait(0.02);
    mac.done({{"do", "perform"}, {"text", "Wi-Fi"}, {"action", "Move to Hidden"}});
    mac.wait(20);
    EXPECT_EQ(storedHidden(mac), json::array({wifi}));
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(ConfigureWindow, readsBeforeItSaysThatThereIsNothing) {
    TavrinMac mac(trustedMac("classic-display", setUp()));
    mac.set("latency", {{"com.sample.sensors", 0.2}});
    mac.wait(0.1);
    mac.done({{"do", "start"}});
    mac.wait(0.2);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(mac.find("Reading menu bar items…").size(), 1u) << i;
        EXPECT_FALSE(mac.shows("No supported menu bar items found")) << i;
        mac.wait(0.1);
    }
    mac.wait(3);
    EXPECT_TRUE(mac.shows("Wi-Fi"));
    EXPECT_FALSE(mac.shows("Reading menu bar items…"));
}

} // namespace
} // namespace mac_model
