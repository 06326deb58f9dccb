#include "hiding/skerrow_policy.h"
#include "hiding/status_item_geometry_policy.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

MenuBarItem item(std::string id, MenuBarZone zone, std::string bundle = "org.other", bool isMovable = true) {
    MenuBarItem result;
    result.snapshot.id = std::move(id);
    result.snapshot.bundleIdentifier = std::move(bundle);
    result.snapshot.zone = zone;
    result.snapshot.isMovable = isMovable;
    return result;
}

std::vector<std::string> identifiers(const std::vector<MenuBarItemAssignment>& assignments) {
    std::vector<std::string> ids;
    for (const auto& assignment : assignments) ids.push_back(assignment.itemIdentifier);
    return ids;
}

TEST(SkerrowPolicyTest, tellsWhatHidingWouldGetWrong) {
    using enum MenuBarZone;
    const std::vector<MenuBarItem> items{
        item("org.B", visible), item("org.a", hidden), item("own", visible, "org.tavrin"),
        item("org.c", hidden),
        item("com.apple.controlcenter::identifier:Com.Apple.X", visible, "com.apple.controlcenter")};
    const SkerrowPolicy policy(
        items, {"ORG.b", "org.c", "own", "com.apple.controlcenter::identifier:com.apple.x"}, "org.tavrin");
    EXPECT_EQ(identifiers(policy.pendingMoves()),
              (std::vector<std::string>{"org.B", "com.apple.controlcenter::identifier:Com.Apple.X"}));
    EXPECT_EQ(identifiers(policy.trayOverflow()), (std::vector<std::string>{"org.a"}));
    EXPECT_EQ(policy.assignments().size(), 4u);
}

TEST(SpacerLengthTest, isTwiceTheWidestScreenWithinBounds) {
    const auto length = [](std::vector<double> widths) {
        std::vector<Screen> screens;
        for (const auto width : widths)
            screens.push_back({.frame = {0, 0, width, 900}, .leftMenuBarArea = {}, .rightMenuBarArea = {}});
        return collapsedSpacerLength(screens);
    };
    EXPECT_EQ(length({1512}), 3024);
    EXPECT_EQ(length({200}), 500);
    EXPECT_EQ(length({6000}), 10'000);
    EXPECT_EQ(length({1512, 2560, 800}), 5120);
    EXPECT_EQ(length({}), 3456);
}

TEST(StatusItemGeometryPolicyTest, spacerMayOverlapTheControlByAPoint) {
    EXPECT_TRUE(StatusItemGeometryPolicy::isLeftOf({1259, 7, 2, 24}, {1260, 7, 26, 24}));
    EXPECT_FALSE(StatusItemGeometryPolicy::isLeftOf({1259, 7, 2.5, 24}, {1260, 7, 26, 24}));
}

} // namespace
} // namespace tavrin
