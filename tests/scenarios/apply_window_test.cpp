#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

constexpr const char* repaired = "Skerrow.statusItemAutosaveVersion";
constexpr const char* onTheVisibleSide =
    "Couldn’t hide yet: 1 item is still on the visible side. Apply the configuration first.";

/// Past its neighbour, so that the spacer stays behind on its other side.
void dragControlToTheLeft(TavrinMac& mac) {
    const auto from = middleOf(mac.control()["frame"]);
    json to = from;
    to[0] = to[0].get<double>() - 60;
    mac.done({{"do", "drag"}, {"from", from}, {"to", to}, {"modifiers", {"command"}}});
    mac.wait(1);
}

/// The displays change, which macOS shows as no displays for a moment.
void letScreensVanishBriefly(TavrinMac& mac) {
    auto screens = mac.look()["screens"];
    for (auto& screen : screens)
        for (const char* derived : {"menuBarHeight", "menus"}) screen.erase(derived);
    screens[0]["frame"][3] = screens[0]["frame"][3].get<double>() + 20;
    mac.set("screensVanishBriefly", true);
    mac.set("screens", screens);
}

void closeWindow(TavrinMac& mac) {
    mac.done({{"do", "key"}, {"key", "escape"}});
    mac.wait(1);
}

TEST(ApplyWindow, staysWhereTheControlWasMovedByHand) {
    TavrinMac mac(controlInMidBar({wifi, sound}));
    mac.wait(2);
    dragControlToTheLeft(mac);
    ASSERT_GT(spacer(mac)["frame"][0], mac.control()["frame"][0]);
    apply(mac);
    mac.wait(2.5);
    EXPECT_TRUE(mac.shows("Stop"));
    waitForApply(mac);
    EXPECT_TRUE(isCollapsed(mac)) << mac.look()["surfaces"].dump().substr(0, 2000);
    EXPECT_EQ(storedText(mac, repaired), "absent") << "the control keeps its place";
}

TEST(ApplyWindow, comesBackWithTheControlThatARepairMakes) {
    TavrinMac mac(trustedMac("notched-laptop", setUp()));
    mac.wait(2);
    openConfigure(mac);
    mac.set("behindNotch", {{tavrinBundle, "presentItems"}});
    mac.set("refuseDrags", "org.example.notes");
    mac.wait(0.5);
    mac.press("Apply and Hide");
    mac.wait(3.5);
    EXPECT_EQ(storedText(mac, repaired), "2");
    EXPECT_TRUE(mac.shows("Stop"));
    waitForApply(mac);
    EXPECT_TRUE(showsPart(mac, "Couldn’t apply "));
}

TEST(ApplyWindow, tellsOfARepairThatFailed) {
    TavrinMac mac(trustedMac("notched-laptop"));
    mac.wait(4);
    answerHint(mac);
    openConfigure(mac);
    mac.set("behindNotch", {{tavrinBundle, "allItems"}});
    mac.wait(0.5);
    mac.press("Apply and Hide");
    mac.wait(60);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows("Menu Bar Items"));
    EXPECT_TRUE(showsPart(mac, "ouldn’t ")) << mac.look()["surfaces"].dump().substr(0, 2000);
}

TEST(ApplyWindow, comesBackWithTheScreens) {
    for (const double moment : {0.01, 0.1, 0.5, 1.0}) {
        TavrinMac mac(controlInMidBar({wifi, sound}));
        mac.wait(2);
        apply(mac);
        mac.wait(moment);
        letScreensVanishBriefly(mac);
        mac.wait(1);
        EXPECT_TRUE(mac.shows("Menu Bar Items")) << moment;
        waitForApply(mac);
        EXPECT_TRUE(isCollapsed(mac) || showsPart(mac, "ouldn’t ")) << moment;
        EXPECT_EQ(storedText(mac, repaired), "absent") << "a passing state rebuilds nothing";
    }
}

TEST(ApplyWindow, endsWithARightClickOnTheControlWhoseMenuStays) {
    TavrinMac mac(controlInMidBar({wifi, sound}));
    mac.wait(2);
    mac.set("refuseDrags", "com.apple.controlcenter");
    apply(mac);
    for (int i = 0; i < 300 && !mac.shows("Placing Wi-Fi (attempt 2)…"); ++i) mac.wait(0.01);
    mac.wait(0.8); // the drag is over, and its effect is waited for
    mac.rightClickItem(tavrinBundle);
    mac.wait(3);
    EXPECT_TRUE(mac.shows("Configure Items…"));
    EXPECT_FALSE(mac.shows("Stop"));
    EXPECT_FALSE(showsPart(mac, "Couldn’t apply "));
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(ApplyWindow, keepsItsButtonsBelowManyFailures) {
    auto options = crowdOnTheVisibleSide(24);
    auto desktop = json::parse(options.desktopJson);
    desktop["screens"] = {{{"frame", {0, 0, 1512, 982}}}};
    options.desktopJson = desktop.dump();
    TavrinMac mac(options);
    mac.wait(2);
    openConfigure(mac);
    mac.set("eventsFail", true);
    mac.done({{"do", "key"}, {"key", "return"}});
    mac.wait(10);
    ASSERT_TRUE(showsPart(mac, "Couldn’t apply 24 changes"));
    const auto bottomOf = [](const json& node) {
        return node["frame"][1].get<double>() + node["frame"][3].get<double>();
    };
    const auto window = mac.surfacesOf(tavrinBundle).back();
    EXPECT_LE(bottomOf(window), 982);
    EXPECT_LE(bottomOf(mac.find("Apply and Hide").at(0)), bottomOf(window));
    EXPECT_LE(bottomOf(mac.find("Refresh menu bar items").at(0)), bottomOf(window));
}

TEST(CollapsedState, isRestoredByTheWindowThatOpenedDuringTheStart) {
    TavrinMac mac(trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})));
    mac.wait(0.2);
    mac.done({{"do", "start"}});
    mac.wait(4);
    EXPECT_TRUE(mac.shows("Menu Bar Items"));
    EXPECT_FALSE(isCollapsed(mac));
    closeWindow(mac);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_FALSE(mac.shows("Menu Bar Items"));
}

TEST(CollapsedState, thatIsRefusedAtTheStartSaysWhy) {
    auto options = controlInMidBar({wifi});
    options.changes["defaults"][tavrinBundle]["Skerrow.shouldStartCollapsed"] = true;
    TavrinMac mac(options);
    mac.wait(3);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows(onTheVisibleSide));
}

TEST(CollapsedState, thatIsRefusedWhenTheWindowClosesSaysWhyOnce) {
    TavrinMac mac(controlInMidBar({}));
    mac.wait(2);
    clickControlAndWait(mac);
    ASSERT_TRUE(isCollapsed(mac));
    openConfigure(mac);
    mac.press("Hide Wi-Fi");
    closeWindow(mac);
    EXPECT_TRUE(mac.shows(onTheVisibleSide));
    EXPECT_FALSE(isCollapsed(mac));
    closeWindow(mac);
    EXPECT_FALSE(mac.shows("Menu Bar Items")) << "it can be closed";
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(Repair, isNoneForScreensThatVanishBriefly) {
    TavrinMac mac(trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})));
    mac.wait(0.4);
    letScreensVanishBriefly(mac);
    mac.wait(4);
    EXPECT_EQ(storedText(mac, repaired), "absent");
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Repair, leavesTheControlWhereItWasMovedByHand) {
    TavrinMac mac(controlInMidBar({}));
    mac.wait(2);
    dragControlToTheLeft(mac);
    const auto place = mac.control()["frame"][0];
    clickControl(mac);
    mac.wait(3);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(mac.control()["frame"][0], place);
    EXPECT_EQ(storedText(mac, repaired), "absent");
}

} // namespace
} // namespace mac_model
