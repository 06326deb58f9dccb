#include "scenarios/applying_acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

constexpr const char* needsScan =
    "Tavrin needs a current item scan before it can hide anything. Grant Accessibility "
    "access, then refresh.";

struct Model {
    std::string desktop;
    std::string setting; // empty: all at their defaults
    std::string value;
};

std::vector<Model> allModels() {
    std::vector<Model> models;
    for (const auto& desktop : shippedDesktops) {
        if (desktop.starts_with("macos-27")) continue; // has no spacer; see native_hiding_test.cpp
        models.push_back({desktop, "", ""});
        for (const auto& setting : uncertaintySettings) {
            for (const auto value : setting.values.subspan(1))
                models.push_back({desktop, std::string(setting.name), std::string(value)});
        }
    }
    return models;
}

class HidingOnEveryMac : public testing::TestWithParam<Model> {};

TEST_P(HidingOnEveryMac, hidesRevealsAndLeavesNothingBehind) {
    const auto& model = GetParam();
    auto options = trustedMac(model.desktop, {{"Skerrow.legacy", 1}});
    if (!model.setting.empty()) options.model[model.setting] = model.value;
    TavrinMac mac(options);
    const auto before = othersItems(mac);
    mac.wait(8);
    ASSERT_TRUE(isCollapsed(mac)) << "a fresh install hides everything that can be moved";
    EXPECT_EQ(spacer(mac)["enabled"], false) << "the long spacer must not light up under a click";
    for (const auto& item : mac.look()["menuBar"]) {
        const bool isFixed = item["name"] == "Clock" || item["name"] == "Control Center";
        if (item["owner"] != tavrinBundle) EXPECT_EQ(item["drawn"], isFixed) << item;
    }
    EXPECT_TRUE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
    answerHint(mac);
    EXPECT_TRUE(isCollapsed(mac)) << "closing the configure window restores what it found";

    clickControlAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_EQ(spacerLength(mac), 0);
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "false");
    clickControlAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");

    mac.terminate();
    mac.wait(1);
    EXPECT_EQ(othersItems(mac), before);
    EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{});
    mac.start();
    mac.wait(8);
    EXPECT_TRUE(isCollapsed(mac)) << "the choice survives a restart";
}

INSTANTIATE_TEST_SUITE_P(Models, HidingOnEveryMac, testing::ValuesIn(allModels()), [](const auto& info) {
    const auto& model = info.param;
    auto name =
        model.desktop + "_" + (model.setting.empty() ? "defaults" : model.setting + "_" + model.value);
    std::ranges::replace(name, '-', '_');
    return name;
});

/// Tavrin's control stands in mid-bar, with Wi-Fi and Sound on its visible side.
TavrinMacOptions withControlInMidBar(std::vector<std::string> hidden) {
    return trustedMac("classic-display",
                      setUp(std::move(hidden), {{"NSStatusItem Preferred Position Skerrow.Main.v1", 500.5}}));
}

TEST(Hiding, isRefusedWhileItemsStandOnTheVisibleSide) {
    // The bundle part of an identifier, and all of Control Center's, compare without letter case.
    const std::vector<std::string> wrongSide{"com.apple.controlcenter::identifier:com.apple.menuextra.wifi",
                                             "COM.APPLE.ControlCenter::identifier:com.apple.menuextra.SOUND"};
    const std::pair<std::vector<std::string>, const char*> cases[]{
        {{wrongSide[0]},
         "Couldn’t hide yet: 1 item is still on the visible side. Apply the configuration first."},
        {wrongSide,
         "Couldn’t hide yet: 2 items are still on the visible side. Apply the configuration first."}};
    for (const auto& [hidden, message] : cases) {
        auto mac = started(withControlInMidBar(hidden));
        const auto before = othersItems(mac);
        clickControlAndWait(mac);
        EXPECT_TRUE(mac.shows(message));
        EXPECT_EQ(othersItems(mac), before);
        EXPECT_FALSE(isCollapsed(mac));
        EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "absent");

        // Choosing to show the items after all makes the way free.
        for (std::size_t i = 0; i < hidden.size(); ++i) mac.press(i == 0 ? "Show Wi-Fi" : "Show Sound");
        mac.key("escape");
        clickControlAndWait(mac);
        EXPECT_TRUE(isCollapsed(mac));
    }
}

TEST(Hiding, quickClicksHideOnceAndTheNewestRequestWins) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("latency", {{"com.sample.sensors", 0.2}});
    clickControl(mac);
    clickControl(mac);
    EXPECT_FALSE(isCollapsed(mac)) << "the scan of the second request is still running";
    mac.wait(5);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(mac.stats()["tasks"], 0);
}

TEST(Hiding, aHungApplicationCostsOneTimeoutAndNothingElse) {
    const auto hidingTime = [](int hungCount) {
        auto mac = started(trustedMac("classic-display", setUp()));
        const char* bundles[]{"com.sample.sensors", "org.example.rooms", "org.example.notes"};
        for (int i = 0; i < hungCount; ++i) mac.set("hang", bundles[i]);
        clickControl(mac);
        const double began = mac.look()["time"];
        while (!isCollapsed(mac) && mac.look()["time"] < began + 10) mac.wait(0.01);
        EXPECT_TRUE(isCollapsed(mac));
        return mac.look()["time"].get<double>() - began;
    };
    const auto healthy = hidingTime(0);
    EXPECT_LT(healthy, 0.2);
    EXPECT_NEAR(hidingTime(1), healthy + 0.5, 0.06);
    EXPECT_NEAR(hidingTime(3), healthy + 1.5, 0.06);
}

TEST(Hiding, revokedAccessRefusesTheNextHideUntilGrantedAgain) {
    for (const char* revoked : {"apiDisabled", "timesOut"}) {
        for (const char* notice : {"prompt", "stale"}) {
            auto options = trustedMac("classic-display", setUp());
            options.model = {{"revokedAccess", revoked}, {"permissionNotice", notice}};
            auto mac = started(options);
            mac.set("trusted", false);
            mac.wait(1);
            const auto before = othersItems(mac);
            clickControlAndWait(mac);
            EXPECT_TRUE(mac.shows(needsScan));
            EXPECT_TRUE(mac.shows("Grant access to load menu bar apps"));
            EXPECT_EQ(othersItems(mac), before);
            mac.set("trusted", true);
            mac.wait(4);
            EXPECT_FALSE(mac.shows("Grant access to load menu bar apps"));
            mac.key("escape");
            clickControlAndWait(mac);
            EXPECT_TRUE(isCollapsed(mac)) << revoked << ' ' << notice;
            mac.set("trusted", false);
            clickControlAndWait(mac);
            EXPECT_FALSE(isCollapsed(mac)) << "revealing needs no access";
        }
    }
}

TEST(Hiding, theSpacerFollowsTheWidestScreen) {
    auto mac = started(trustedMac("two-displays", setUp()));
    clickControlAndWait(mac);
    EXPECT_EQ(spacerLength(mac), 5120);
    auto screens = mac.look()["screens"];
    for (auto& screen : screens) {
        for (const char* derived : {"menuBarHeight", "menus"}) screen.erase(derived);
    }
    for (const bool vanishBriefly : {false, true}) {
        mac.set("screensVanishBriefly", vanishBriefly);
        mac.set("screens", json::array({screens[0]}));
        mac.wait(2);
        EXPECT_EQ(spacerLength(mac), 3024);
        mac.set("screens", screens);
        mac.wait(2);
        EXPECT_EQ(spacerLength(mac), 5120);
        EXPECT_TRUE(isCollapsed(mac));
    }
    clickControlAndWait(mac);
    mac.set("screens", json::array({screens[0]}));
    mac.wait(2);
    EXPECT_EQ(spacerLength(mac), 0);
}

TEST(Hiding, aControlThatMacOSTakesAwayBringsTheFullBarBack) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("dropsOwnersOfLongItems", true);
    clickControl(mac);
    mac.wait(3);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_EQ(spacerLength(mac), 0);
    EXPECT_TRUE(
        mac.shows("macOS removed Tavrin’s own control while hiding items, so the full menu bar was restored. "
                  "Move the app to the Applications folder, relaunch it, and try again."));
    mac.set("dropsOwnersOfLongItems", false);
    mac.key("escape");
    clickControl(mac);
    mac.wait(3);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Hiding, aChangeOfTheDisplaysLooksAfterTheControlAgain) {
    auto mac = started(trustedMac("two-displays", setUp()));
    clickControl(mac);
    mac.wait(3);
    ASSERT_TRUE(isCollapsed(mac));
    mac.set("dropsOwnersOfLongItems", true);
    mac.set("screens", json::array({{{"frame", {0, 0, 1512, 982}}}}));
    mac.wait(3);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(showsPart(mac, "macOS removed Tavrin’s own control while hiding items"));
}

TEST(Hiding, aControlThatIsGoneForAMomentOnlyIsLeftHidden) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("dropsOwnersOfLongItems", true);
    clickControl(mac);
    mac.wait(0.7);
    mac.set("dropsOwnersOfLongItems", false);
    mac.wait(3);
    EXPECT_TRUE(isCollapsed(mac)) << "the second look finds it";
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

TEST(Hiding, accessThatEndsDuringTheScanRefusesTheHide) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("latency", {{"com.sample.sensors", 0.3}});
    clickControl(mac);
    mac.wait(0.15);
    mac.set("trusted", false);
    mac.wait(3);
    EXPECT_TRUE(mac.shows(needsScan));
    EXPECT_FALSE(isCollapsed(mac));
}

} // namespace
} // namespace mac_model
