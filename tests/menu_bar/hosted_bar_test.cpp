#include "support/tavrin_mac.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

constexpr auto agentBundle = "com.apple.MenuBarAgent";

/// A crowded Mac of 27 on which Tavrin can hide nothing.
class HostedBarTest : public testing::Test {
  protected:
    HostedBarTest() { mac.wait(2); }

    json itemOf(const std::string& bundle) { return mac.itemsOf(bundle).front(); }

    std::string why(const std::string& bundle) { return itemOf(bundle).value("why", ""); }

    double xOf(const std::string& bundle) { return itemOf(bundle)["frame"][0]; }

    TavrinMac mac{{.desktop = "macos-27", .changes = {{"visibilityService", "absent"}}}};
};

TEST_F(HostedBarTest, whatFindsNoRoomStandsBehindTheButton) {
    EXPECT_EQ(mac.drawnItems().size(), 12U);
    EXPECT_EQ(why("org.example.tunnel"), "overflow");
    EXPECT_EQ(mac.look()["screens"][0]["overflow"], json({850, 4, 26, 24}));
    mac.done({{"do", "click"}, {"at", {860, 10}}});
    mac.press("Tunnel: connected");
    EXPECT_EQ(mac.surfacesOf("org.example.tunnel").size(), 1U) << "it can be had from the button's menu";
    mac.set("quit", "com.sample.meters");
    mac.set("quit", "com.sample.jchat");
    mac.settle();
    EXPECT_EQ(why("org.example.tunnel"), "");
    EXPECT_FALSE(mac.look()["screens"][0].contains("overflow"));
}

TEST_F(HostedBarTest, anotherDisplayHasRoomForOthers) {
    mac.set("screens", {{{"frame", {0, 0, 1512, 982}},
                         {"leftMenuBarArea", {0, 0, 665, 32}},
                         {"rightMenuBarArea", {850, 0, 662, 32}}},
                        {{"frame", {1512, 0, 2560, 1440}}}});
    mac.settle();
    const auto screens = mac.look()["screens"];
    EXPECT_EQ(screens[1]["items"].size(), 18U);
    EXPECT_FALSE(screens[1].contains("overflow"));
    const auto tunnel = itemOf("org.example.tunnel")["id"];
    double x = 0;
    for (const auto& item : screens[1]["items"])
        if (item["id"] == tunnel) x = item["frame"][0].get<double>() + 5;
    mac.done({{"do", "click"}, {"at", {x, 10}}});
    const auto opened = mac.surfacesOf("org.example.tunnel");
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_NEAR(tavrin::Rect(opened[0]["frame"][0], 0, opened[0]["frame"][2], 0).midX(), x, 1)
        << "it opens where the item is there";
}

TEST_F(HostedBarTest, nothingIsDrawnWithoutTheAgentNorMovedWhileItHangs) {
    mac.set("hang", agentBundle);
    const auto x = xOf("org.example.notes");
    mac.set("quit", "com.apple.Spotlight");
    mac.settle();
    EXPECT_EQ(xOf("org.example.notes"), x);
    mac.clickItem("org.example.notes");
    EXPECT_TRUE(mac.surfacesOf("org.example.notes").empty()) << "no press reaches an item";
    mac.set("resume", agentBundle);
    mac.settle();
    EXPECT_EQ(xOf("org.example.notes"), x + 34);
    mac.set("quit", agentBundle);
    mac.settle();
    EXPECT_TRUE(mac.drawnItems().empty());
    EXPECT_EQ(why("org.example.notes"), "barNotVisible");
    mac.set("launch", {{"bundleIdentifier", agentBundle}, {"name", "MenuBarAgent"}, {"policy", "accessory"}});
    mac.settle();
    EXPECT_EQ(mac.drawnItems().size(), 12U);
}

TEST_F(HostedBarTest, aMacOf27StartsItsAgentItself) {
    TavrinMac other{{.desktop = "notched-laptop", .changes = {{"macOS", {{"major", 27}}}}}};
    EXPECT_EQ(other.mac().processes().withBundle(agentBundle).size(), 1U);
    EXPECT_FALSE(other.drawnItems().empty());
}

TEST_F(HostedBarTest, aPersonMovesItemsAndAPostedDragClicksThem) {
    const auto from = xOf("org.example.notes");
    mac.done(
        {{"do", "drag"}, {"from", {from + 10, 15}}, {"to", {from - 90, 15}}, {"modifiers", {"command"}}});
    mac.settle();
    EXPECT_LT(xOf("org.example.notes"), from);
    const auto places = mac.done({{"do", "defaults"}, {"domain", agentBundle}})["values"];
    EXPECT_TRUE(places.contains("NSStatusItem Preferred Position org.example.notes Item-0"))
        << "the agent keeps the places: " << places;
}

TEST_F(HostedBarTest, theClockOpensNotificationCenterWhileNothingIsWithheld) {
    const auto click = [&] { mac.done({{"do", "click"}, {"at", {1500, 15}}}); };
    const auto shown = [&] { return mac.surfacesOf("com.apple.notificationcenterui").size(); };
    click();
    ASSERT_EQ(shown(), 1U);
    EXPECT_GT(mac.surfacesOf("com.apple.notificationcenterui").front()["frame"][3], 300);
    click();
    EXPECT_EQ(shown(), 0U);
    click();
    mac.done({{"do", "click"}, {"at", {300, 500}}});
    EXPECT_EQ(shown(), 0U) << "a click elsewhere closes it";
    mac.set("visibilityService", "accepts"); // which Tavrin has found absent
    const auto list = mac.mac().visibility().activate(1, {{2, 8}, {}}, [](const auto&) {});
    mac.settle();
    click();
    EXPECT_EQ(shown(), 0U);
    mac.mac().visibility().invalidate(list);
    mac.settle();
    click();
    EXPECT_EQ(shown(), 1U);
    mac.set("notificationCenter", false);
    EXPECT_EQ(shown(), 0U);
    mac.set("quit", "com.apple.notificationcenterui");
    click();
    EXPECT_EQ(shown(), 0U);
    EXPECT_NE(mac.refused({{"do", "set"}, {"notificationCenter", true}}), "");
}

} // namespace
} // namespace mac_model
