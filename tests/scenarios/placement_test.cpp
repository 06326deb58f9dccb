#include "scenarios/applying_acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

constexpr const char* controlPosition = "NSStatusItem Preferred Position Skerrow.Main.v1";

json autosaveVersion(TavrinMac& mac) {
    return mac.defaults().value("Skerrow.statusItemAutosaveVersion", json(1));
}

TEST(Placement, howeverLateTheControlKeepsThePlaceThatItsUserChose) {
    for (const char* placement : {"prompt", "slow", "verySlow"}) {
        for (const bool startsCollapsed : {false, true}) {
            auto options = controlInMidBar({notes});
            options.changes["defaults"][tavrinBundle]["Skerrow.shouldStartCollapsed"] = startsCollapsed;
            options.model["placement"] = placement;
            auto mac = started(options, 8);
            EXPECT_EQ(autosaveVersion(mac), 1) << placement << ": nothing was started over";
            EXPECT_EQ(mac.defaults()[controlPosition], 430.5) << placement;
            EXPECT_EQ(isCollapsed(mac), startsCollapsed) << placement;
            EXPECT_TRUE(isRightOfControl(mac, "com.apple.menuextra.wifi")) << placement;
        }
    }
}

TEST(Placement, aSpacerThatFollowsTheControlIsGivenTheSameTime) {
    for (const char* placement : {"slow", "verySlow"}) {
        auto options = controlInMidBar({});
        options.model["placement"] = placement;
        auto mac = started(options, 6);
        const auto control = mac.control()["frame"];
        const double x = control[0].get<double>() + 10;
        mac.done({{"do", "drag"}, {"from", {x, 12}}, {"to", {x - 200, 12}}, {"modifiers", {"command"}}});
        mac.wait(1);
        const auto moved = mac.control()["frame"][0].get<double>();
        ASSERT_LT(moved, control[0].get<double>() - 50);
        clickControl(mac);
        mac.wait(14);
        EXPECT_TRUE(isCollapsed(mac)) << placement;
        EXPECT_EQ(autosaveVersion(mac), 1) << placement;
        EXPECT_NEAR(mac.control()["frame"][0].get<double>(), moved, 30) << placement;
    }
}

} // namespace
} // namespace mac_model
