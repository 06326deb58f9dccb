#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

// The person works on the second display. Its menu bar then tells where others' items are, while the windows
// of Tavrin's own items stay on the first.

const json first{{"frame", {0, 0, 1920, 1080}}, {"scale", 1}};

const std::vector<std::pair<std::string, Rect>> placesOfSecond{{"right and lower", {1920, 200, 2560, 1440}},
                                                               {"left", {-2560, 0, 2560, 1440}},
                                                               {"above", {300, -1440, 2560, 1440}}};

TavrinMac withSecond(const Rect& second) {
    auto mac = started(controlInMidBar({wifi}));
    mac.set("screens", {first, {{"frame", {second.x, second.y, second.width, second.height}}, {"scale", 1}}});
    mac.wait(3);
    return mac;
}

/// A click on the control in the menu bar of the first or the second display.
void clickControlOn(TavrinMac& mac, std::size_t display, const std::string& button = "left") {
    const json frame = mac.control()["frame"];
    const json screen = mac.look()["screens"][display]["frame"];
    const double fromRight = 1920 - frame[0].get<double>() - frame[2].get<double>() / 2;
    const double x = screen[0].get<double>() + screen[2].get<double>() - fromRight;
    mac.done({{"do", "click"}, {"at", {x, screen[1].get<double>() + 10}}, {"button", button}});
    mac.wait(2);
}

TEST(ActiveDisplay, changesNothingOfWhatAnApplyDoes) {
    for (const auto& [place, frame] : placesOfSecond) {
        json asOnFirst;
        for (const std::size_t display : {0, 1}) {
            auto mac = withSecond(frame);
            clickControlOn(mac, display, "right");
            mac.press("Configure Items…");
            mac.wait(1);
            mac.press("Apply and Hide");
            waitForApply(mac);
            EXPECT_EQ(mac.look()["world"]["activeDisplay"], display) << place;
            EXPECT_TRUE(isCollapsed(mac)) << place << ' ' << display;
            clickControlOn(mac, display);
            EXPECT_FALSE(isRightOfControl(mac, "com.apple.menuextra.wifi")) << place << ' ' << display;
            if (display == 0) asOnFirst = othersItems(mac);
            EXPECT_EQ(othersItems(mac), asOnFirst) << place;
        }
    }
}

TEST(ActiveDisplay, mayChangeBetweenTwoClicks) {
    for (const auto& [place, frame] : placesOfSecond) {
        auto mac = withSecond(frame);
        applyAndWait(mac);
        for (const std::size_t display : {1, 0, 1, 1}) clickControlOn(mac, display);
        EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty()) << place;
        EXPECT_TRUE(isCollapsed(mac)) << place;
    }
}

TEST(ActiveDisplay, isTheOneWhereThePersonPressedLast) {
    auto mac = withSecond({1920, 200, 1440, 900});
    mac.done({{"do", "click"}, {"at", {2500, 700}}});
    EXPECT_EQ(mac.look()["world"]["activeDisplay"], 1);
    EXPECT_NE(mac.refused({{"do", "set"}, {"activeDisplay", 2}}), "");
    mac.set("screens", json::array({first}));
    EXPECT_EQ(mac.look()["world"]["activeDisplay"], 0);
}

} // namespace
} // namespace mac_model
