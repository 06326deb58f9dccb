#include "support/tavrin_mac.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace mac_model {
namespace {

/// A bar with a fixed clock, three items with places and two without, right to left.
constexpr const char* desktop = R"({
  "macOS": {"major": 26}, "screens": [{"frame": [0, 0, 1600, 900]}, {"frame": [1600, 0, 1000, 800]}],
  "applications": [
    {"bundleIdentifier": "com.apple.controlcenter", "name": "Control Center", "processIdentifier": 401, "policy": "accessory",
     "statusItems": [{"autosaveName": "Clock", "description": "Time", "width": 100, "preferredPosition": 0, "fixed": true}]},
    {"bundleIdentifier": "org.a", "name": "A", "processIdentifier": 501, "policy": "accessory",
     "statusItems": [{"description": "A", "width": 40, "preferredPosition": 120}]},
    {"bundleIdentifier": "org.b", "name": "B", "processIdentifier": 502, "policy": "accessory",
     "statusItems": [{"description": "B", "width": 20, "preferredPosition": 121}]},
    {"bundleIdentifier": "org.c", "name": "C", "processIdentifier": 503, "policy": "accessory",
     "statusItems": [{"description": "C", "width": 60, "preferredPosition": 122, "movable": true}]},
    {"bundleIdentifier": "org.d", "name": "D", "processIdentifier": 504, "policy": "accessory",
     "statusItems": [{"description": "D", "width": 30}]},
    {"bundleIdentifier": "org.e", "name": "E", "processIdentifier": 505, "policy": "accessory",
     "statusItems": [{"description": "E", "width": 30, "movable": false}]}]})";

class CommandDrag : public testing::Test {
  protected:
    /// The items' letters from left to right, without Tavrin's own.
    std::string order() {
        std::string letters;
        const auto look = mac_.look();
        for (const auto& item : look["menuBar"])
            if (item["owner"] != tavrinBundle) letters += item["name"].get<std::string>().front();
        return letters;
    }

    double middleOf(const std::string& bundle) {
        const auto frame = mac_.itemsOf(bundle).front()["frame"];
        return frame[0].get<double>() + frame[2].get<double>() / 2;
    }

    void drag(const std::string& bundle, double dx, double y = 12, double fromX = 0) {
        const double x = middleOf(bundle) + fromX;
        mac_.done({{"do", "drag"}, {"from", {x, 12}}, {"to", {x + dx, y}}, {"modifiers", {"command"}}});
        mac_.wait(0.5);
    }

    json stored(const std::string& bundle) {
        const auto values = mac_.done({{"do", "defaults"}, {"domain", bundle}})["values"];
        return values.value("NSStatusItem Preferred Position Item-0", json());
    }

    TavrinMac mac_{{.desktopJson = desktop}};
};

TEST_F(CommandDrag, movesAnItemPastTheMiddleOfItsNeighbour) {
    ASSERT_EQ(order(), "EDCBAT");
    drag("org.b", 19); // the middle of A is 20 further right than B's right edge
    EXPECT_EQ(order(), "EDCBAT");
    drag("org.b", 21);
    EXPECT_EQ(order(), "EDCABT");
    drag("org.b", 95);
    EXPECT_EQ(order(), "EDCABT") << "the clock is never passed";
    drag("org.b", -200);
    EXPECT_EQ(order(), "BEDCAT");
    EXPECT_EQ(middleOf("org.b"), 1600 - 100 - 40 - 60 - 30 - 30 - 10) << "the run has no gap";
}

TEST_F(CommandDrag, storesThePlaceSoThatItSurvives) {
    drag("org.a", -115);
    ASSERT_EQ(order(), "EADCBT");
    EXPECT_GT(stored("org.a").get<double>(), stored("org.d").get<double>()) << "D had no place, and got one";
    drag("org.c", 60);
    ASSERT_EQ(order(), "EADBCT");
    for (const auto* bundle : {"org.a", "org.c", "org.d"}) { // B keeps the place that its file gives
        mac_.set("quit", bundle);
        const std::string name(1, static_cast<char>(bundle[4] - 'a' + 'A'));
        mac_.set("launch", {{"bundleIdentifier", bundle},
                            {"name", name},
                            {"policy", "accessory"},
                            {"statusItems", {{{"description", name}, {"width", 30}}}}});
    }
    mac_.wait(1);
    EXPECT_EQ(order(), "EADBCT");
}

TEST_F(CommandDrag, doesNothingWhereMacOSDoesNot) {
    struct Case {
        const char* name;
        const char* bundle;
        double dx;
        double y;
    };

    for (const auto& [name, bundle, dx, y] :
         {Case{"fixed", "com.apple.controlcenter", -200, 12}, Case{"not movable", "org.e", 200, 12},
          Case{"let go below the bar", "org.a", -100, 300}, Case{"hardly moved", "org.b", 4, 12}}) {
        drag(bundle, dx, y);
        EXPECT_EQ(order(), "EDCBAT") << name;
        EXPECT_TRUE(stored("org.a").is_null()) << name;
    }
    mac_.set("refuseDrags", "org.a");
    drag("org.a", -100);
    EXPECT_EQ(order(), "EDCBAT") << "refused";
}

TEST_F(CommandDrag, worksOnAnotherScreensBar) {
    const double x = middleOf("org.a") + 1000; // as far from the right edge
    mac_.done({{"do", "drag"}, {"from", {x, 12}}, {"to", {x - 60, 12}}, {"modifiers", {"command"}}});
    mac_.wait(0.5);
    EXPECT_EQ(order(), "EDACBT");
}

TEST_F(CommandDrag, followsThePointerOnTheWayAndSurvivesItsOwnersEnd) {
    const double x = middleOf("org.a");
    mac_.done({{"do", "down"}, {"at", {x, 12}}, {"modifiers", {"command"}}});
    mac_.done({{"do", "move"}, {"at", {x - 33, 12}}});
    const auto carried = mac_.itemsOf("org.a").front();
    EXPECT_EQ(carried["frame"][0], x - 33 - 20);
    EXPECT_EQ(carried["carried"], true);
    EXPECT_EQ(order(), "EDCABT");
    mac_.set("quit", "org.a");
    mac_.done({{"do", "move"}, {"at", {x - 90, 12}}});
    mac_.done({{"do", "up"}});
    mac_.wait(0.5);
    EXPECT_EQ(order(), "EDCBT");
    drag("org.b", -60);
    EXPECT_EQ(order(), "EDBCT");
}

} // namespace
} // namespace mac_model
