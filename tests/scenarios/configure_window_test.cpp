#include "scenarios/applying_acts.h"

#include <string>

namespace mac_model {
namespace {

/// The view of Tavrin's that has the keyboard focus, with the frame of the Scroll around it.
struct Focused {
    json view = json::object();
    json scroll;
};

Focused focusedIn(const json& node, const json& scroll = {}) {
    if (node.value("focused", false)) return {node, scroll};
    const bool isScroll = node.value("role", "") == "AXScrollArea";
    for (const auto& child : node.value("children", json::array()))
        if (auto found = focusedIn(child, isScroll ? node["frame"] : scroll); !found.view.empty())
            return found;
    return {};
}

Focused focused(TavrinMac& mac) { return focusedIn({{"children", mac.surfacesOf(tavrinBundle)}}); }

std::string focusedName(TavrinMac& mac) {
    const auto view = focused(mac).view;
    return view.value("label", view.value("text", ""));
}

void expectInSight(const Focused& focused, const std::string& when) {
    ASSERT_TRUE(focused.scroll.is_array()) << when;
    const auto& frame = focused.view["frame"];
    const double top = frame[1];
    const double scrollTop = focused.scroll[1];
    EXPECT_GE(top, scrollTop) << when;
    EXPECT_LE(top + frame[3].get<double>(), scrollTop + focused.scroll[3].get<double>()) << when;
}

TEST(ConfigureWindow, rowsMoveByDragMenuAndKeyboard) {
    auto mac = started(trustedMac("classic-display"), 4);
    answerHint(mac);
    openConfigure(mac);
    ASSERT_TRUE(isStoredAsHidden(mac, wifi));
    mac.done({{"do", "drag"}, {"text", "Wi-Fi"}, {"onto", "Shown"}});
    EXPECT_FALSE(isStoredAsHidden(mac, wifi));
    mac.done({{"do", "perform"}, {"text", "Notes"}, {"action", "Move to Shown"}});
    EXPECT_FALSE(isStoredAsHidden(mac, notes));
    EXPECT_TRUE(mac.shows("2 overflow items will show only with all items"));
    mac.done({{"do", "perform"}, {"text", "Notes"}, {"action", "Move to Hidden"}});
    EXPECT_TRUE(isStoredAsHidden(mac, notes));
}

TEST(ConfigureWindow, listsItemsAsTheyStandInTheMenuBar) {
    auto mac = started(trustedMac("notched-laptop"), 4);
    answerHint(mac);
    openConfigure(mac);
    double previous = 0;
    for (const char* name : {"VPN", "Sound", "Spotlight", "Battery", "Wi-Fi"}) {
        const auto rows = mac.find(name);
        ASSERT_FALSE(rows.empty()) << name;
        const double top = rows.front()["frame"][1];
        EXPECT_GT(top, previous) << name;
        previous = top;
    }
}

TEST(ConfigureWindow, staysOnTheScreenWithManyItemsAndLongNames) {
    const std::string longName = "An application whose maker could not stop when it came to finding a name ";
    auto mac = started(crowdOnTheVisibleSide(100, longName), 3);
    openConfigure(mac);
    ASSERT_TRUE(mac.shows("Menu Bar Items"));
    const auto surface = mac.surfacesOf(tavrinBundle).back();
    const double width = surface["frame"][2];
    const double height = surface["frame"][3];
    EXPECT_LT(width, 460);
    EXPECT_LT(height, 800);
    const auto apply = mac.find("Apply and Hide").at(0)["frame"];
    EXPECT_LE(apply[0].get<double>() + apply[2].get<double>(), surface["frame"][0].get<double>() + width);
    EXPECT_LE(apply[1].get<double>() + apply[3].get<double>(), surface["frame"][1].get<double>() + height);
    EXPECT_TRUE(mac.shows(longName + "99"));
    EXPECT_TRUE(mac.shows("100 items will move"));
}

TEST(ConfigureWindow, showsEachItemOfControlCenterWithAPictureOfItsOwn) {
    auto mac = started(trustedMac("notched-laptop"), 4);
    answerHint(mac);
    openConfigure(mac);
    const auto pictureOf = [&mac](const std::string& name) {
        const auto rows = mac.find(name);
        const auto picture = rows.empty() ? json::object() : rows.front()["children"][0];
        return picture.value("symbol", picture.value("icon", "none"));
    };

    struct Case {
        const char* name;
        const char* picture;
    };

    for (const auto& [name, picture] :
         {Case{"Wi-Fi", "wifi"}, Case{"Battery", "battery.100percent"}, Case{"Sound", "speaker.wave.2"},
          Case{"Clock", "clock"}, Case{"Control Center", "switch.2"}, Case{"Notes", "org.example.notes"}})
        EXPECT_EQ(pictureOf(name), picture) << name;
}

TEST(ConfigureWindow, tellsThatThereIsNothing) {
    auto mac = started(crowdOnTheVisibleSide(0), 3);
    openConfigure(mac);
    EXPECT_TRUE(mac.shows("No supported menu bar items found"));
}

TEST(ConfigureWindow, needsNoMouse) {
    auto mac = started(trustedMac("classic-display"), 4);
    answerHint(mac);
    openConfigure(mac);
    const auto key = [&](const std::string& name) { mac.key(name); };
    for (int i = 0; i < 30 && focusedName(mac) != "Wi-Fi"; ++i) key(i == 0 ? "tab" : "down");
    ASSERT_EQ(focusedName(mac), "Wi-Fi");
    key("space");
    EXPECT_FALSE(isStoredAsHidden(mac, wifi));
}

TEST(ConfigureWindow, theKeyboardStaysWithItsRowAndInSight) {
    auto mac = started(crowdOnTheVisibleSide(40), 3);
    openConfigure(mac);
    for (int i = 0; i < 60 && focusedName(mac) != "Item 20"; ++i) {
        mac.key(i == 0 ? "tab" : "down");
        if (i > 0) expectInSight(focused(mac), "step " + std::to_string(i));
    }
    ASSERT_EQ(focusedName(mac), "Item 20");

    mac.set("launch", {{"bundleIdentifier", "org.example.late"},
                       {"name", "Late"},
                       {"policy", "accessory"},
                       {"statusItems", {{{"title", "Late"}, {"width", 40}, {"opens", "nothing"}}}}});
    mac.done({{"do", "perform"}, {"text", "Item 39"}, {"action", "Move to Shown"}});
    mac.wait(5);
    EXPECT_EQ(focusedName(mac), "Item 20");
    expectInSight(focused(mac), "after rows have come above it");

    mac.key("space");
    mac.wait(1);
    EXPECT_FALSE(isStoredAsHidden(mac, nameInCrowd(20) + "::identifier:Item-0"));
    EXPECT_EQ(storedHidden(mac).size(), 38) << "no other row has moved";
    EXPECT_NE(focusedName(mac), "Item 20") << "the focus stays in its list";
    expectInSight(focused(mac), "after the row has left");
}

TEST(ConfigureWindow, theKeyboardStaysWithItsButtonWhenAMessageComesAboveIt) {
    const std::string refresh = "Refresh menu bar items";
    for (const auto& button : {std::string("Apply and Hide"), refresh}) {
        auto mac = started(controlInMidBar({wifi, sound}));
        mac.set("refuseDrags", "com.apple.controlcenter");
        openConfigure(mac);
        for (int i = 0; i < 60 && focusedName(mac) != button; ++i) mac.key("tab");
        ASSERT_EQ(focusedName(mac), button);
        const auto stored = storedHidden(mac);
        if (button == refresh)
            mac.press("Apply and Hide");
        else
            mac.key("space");
        mac.wait(0.5);
        EXPECT_EQ(focusedName(mac), "Stop") << "while " << button << " is away";
        waitForApply(mac);
        ASSERT_TRUE(showsPart(mac, "Couldn")) << "something has come above";
        EXPECT_EQ(focusedName(mac), button);
        mac.key("space");
        mac.wait(0.5);
        EXPECT_EQ(mac.shows("Stop"), button != refresh) << "the key presses what has the focus";
        EXPECT_EQ(storedHidden(mac), stored);
    }
}

TEST(ConfigureWindow, offersNoMoveForWhatMacOSKeepsInPlace) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openConfigure(mac);
    EXPECT_TRUE(showsPart(mac, "Hide Sound"));
    for (const auto* fixed : {"Clock", "Control Center"}) {
        EXPECT_TRUE(mac.shows(fixed)) << fixed;
        EXPECT_FALSE(showsPart(mac, std::string("Hide ") + fixed)) << fixed;
    }
}

TEST(ConfigureWindow, aRightClickOnTheControlLeavesTheWholeBarThere) {
    auto mac = started(trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})), 3);
    openConfigure(mac);
    ASSERT_FALSE(isCollapsed(mac));
    mac.rightClickItem(tavrinBundle);
    mac.wait(1);
    EXPECT_TRUE(mac.shows("Hide Configured Items")) << "the menu tells of the bar that is there";
    EXPECT_FALSE(isCollapsed(mac));
    mac.key("escape");
    mac.wait(1);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");
}

TEST(ConfigureWindow, openedAgainWhileItClosesStillRestoresTheCollapsedBar) {
    const auto collapsed = setUp({}, {{"Skerrow.shouldStartCollapsed", true}});
    for (const double pause : {0.02, 0.07}) {
        auto mac = started(trustedMac("classic-display", collapsed), 3);
        openConfigure(mac);
        mac.key("escape");
        mac.wait(pause);
        mac.start(); // asks for the window again before the bar has been restored
        mac.wait(1);
        EXPECT_TRUE(mac.shows("Menu Bar Items"));
        mac.key("escape");
        mac.wait(1);
        EXPECT_TRUE(isCollapsed(mac)) << pause;
    }
}

TEST(ConfigureWindow, cannotRefreshWhileItemsAreBeingPlaced) {
    auto mac = started(controlInMidBar({wifi, sound}));
    apply(mac);
    mac.wait(0.5);
    ASSERT_TRUE(mac.shows("Stop"));
    EXPECT_EQ(mac.find("Refresh menu bar items").at(0).value("enabled", true), false);
    waitForApply(mac);
}

TEST(ConfigureWindow, aRefreshDuringAScanScansOnceMore) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openConfigure(mac);
    mac.set("latency", {{"com.sample.sensors", 0.3}});
    mac.press("Refresh menu bar items");
    mac.wait(0.1);
    mac.set("launch", {{"bundleIdentifier", "org.example.late"},
                       {"name", "Late"},
                       {"policy", "accessory"},
                       {"statusItems", {{{"title", "Late"}, {"width", 40}, {"opens", "nothing"}}}}});
    mac.press("Refresh menu bar items");
    mac.wait(5);
    EXPECT_TRUE(showsPart(mac, "Hide Late"));
}

} // namespace
} // namespace mac_model
