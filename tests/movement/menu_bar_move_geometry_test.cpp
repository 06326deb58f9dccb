#include "discovery/menu_bar_screen_geometry.h"
#include "movement/menu_bar_move_geometry.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using enum MenuBarZone;

const Screen plain{
    .frame = {0, 0, 1512, 982}, .menuBarHeight = 30, .leftMenuBarArea = {}, .rightMenuBarArea = {}};
const Screen notched{.frame = {0, 0, 1512, 982},
                     .menuBarHeight = 32,
                     .leftMenuBarArea = Rect{0, 0, 665, 32},
                     .rightMenuBarArea = Rect{850, 0, 662, 32}};
const Screen second{
    .frame = {1512, -200, 2560, 1440}, .menuBarHeight = 30, .leftMenuBarArea = {}, .rightMenuBarArea = {}};

MenuBarMoveGeometry geometry(Rect control, double glyphWidth, std::optional<Rect> spacer = {}) {
    return {.controlFrame = control,
            .glyphWidth = glyphWidth,
            .visibleNeighborAccessibilityFrame = {},
            .screens = {plain},
            .spacerFrame = spacer};
}

TEST(MenuBarMoveGeometryTest, boundaryIsTheGlyphOrTheEndOfTheSpacer) {
    const Rect control{990, 0, 40, 30};
    EXPECT_EQ(geometry(control, 26).boundaryX(), 1004);
    EXPECT_EQ(geometry(control, 90).boundaryX(), 990) << "a glyph is no wider than its item";
    EXPECT_EQ(geometry(control, -5).boundaryX(), 1030);
    EXPECT_EQ(geometry(control, 26, Rect{985, 0, 4, 30}).boundaryX(), 989);
    EXPECT_EQ(geometry(control, 26, Rect{1010, 0, 4, 30}).boundaryX(), 1004) << "a spacer on the wrong side";
    EXPECT_EQ(geometry({990, 0, -3, 30}, 26).glyphFrame().width, 0);
}

TEST(MenuBarMoveGeometryTest, destinations) {
    const auto hideAt1000 = geometry({1000, 0, 26, 30}, 26);
    const auto showAt1200 = geometry({1174, 0, 26, 30}, 26);
    EXPECT_EQ(MenuBarMove::destinationX(20, hidden, hideAt1000), 938);
    EXPECT_EQ(MenuBarMove::destinationX(30, hidden, hideAt1000), 928);
    EXPECT_EQ(MenuBarMove::destinationX(100, visible, showAt1200), 1224);
    EXPECT_EQ(MenuBarMove::destinationX(20, visible, showAt1200), 1207);
}

TEST(MenuBarMoveGeometryTest, statusLaneBeginsRightOfTheNotch) {
    const std::vector screens{notched, second};
    const auto isVisible = [&](Rect frame) {
        return MenuBarScreenGeometry::isFullyVisibleInStatusLane(frame, screens, 1);
    };
    EXPECT_TRUE(isVisible({849, 4, 28, 24})) << "a point over the edge is how macOS 26 reports it";
    EXPECT_FALSE(isVisible({848.5, 4, 28, 24}));
    EXPECT_FALSE(isVisible({600, 4, 28, 24})) << "left of the notch";
    EXPECT_TRUE(isVisible({1485, -1, 28, 34}));
    EXPECT_FALSE(isVisible({1500, 4, 28, 24})) << "across two screens";
    EXPECT_TRUE(isVisible({2000, -197, 28, 24}));
    EXPECT_FALSE(isVisible({900, 40, 28, 24}));
    EXPECT_FALSE(isVisible({900, 4, 0, 24}));
    EXPECT_FALSE(isVisible({-30, 4, 28, 24}));
    EXPECT_FALSE(isVisible({900, std::nan(""), 28, 24}));
}

TEST(MenuBarMoveGeometryTest, itemsBelongToTheMenuBarThatHoldsMostOfThem) {
    const std::vector screens{notched, second};
    const auto screenOf = [&](Rect frame) {
        const auto screen = MenuBarMove::menuBarScreen(frame, screens);
        return screen ? screen->frame.x : -1;
    };
    EXPECT_EQ(screenOf({1200, 4, 28, 24}), 0);
    EXPECT_EQ(screenOf({700, 4, 28, 24}), 0) << "behind the notch";
    EXPECT_EQ(screenOf({-20, 4, 28, 24}), 0) << "a sliver";
    EXPECT_EQ(screenOf({2000, -197, 28, 24}), 1512);
    EXPECT_EQ(screenOf({-40, 4, 28, 24}), -1);
    EXPECT_EQ(screenOf({1200, 60, 28, 24}), -1);
    EXPECT_EQ(screenOf({2000, 4, 28, 24}), -1) << "beside the primary screen's bar, below the other's";
}

TEST(MenuBarMoveGeometryTest, grabsTheWidestPartThatIsDrawn) {
    const auto grab = [](Rect frame) { return MenuBarMove::safeMenuBarGrabPoint(frame, notched, 2); };
    EXPECT_EQ(grab({1000, 4, 28, 24}), (Point{1014, 16}));
    EXPECT_EQ(grab({830, 4, 40, 24}), (Point{860, 16})) << "right of the notch";
    EXPECT_EQ(grab({650, 4, 40, 24}), (Point{657.5, 16})) << "left of the notch";
    EXPECT_EQ(grab({640, 4, 215, 24}), (Point{652.5, 16})) << "25 points left, 5 right";
    EXPECT_EQ(grab({660, 4, 195, 24}), (Point{852.5, 16})) << "the right part, of two equal ones";
    EXPECT_EQ(grab({-20, 4, 30, 24}), (Point{5, 16}));
    EXPECT_EQ(grab({700, 4, 28, 24}), std::nullopt) << "behind the notch";
    EXPECT_EQ(grab({825, 4, 28, 24}), std::nullopt) << "three points are too few";
    EXPECT_EQ(grab({1000, 29, 28, 24}), std::nullopt);
}

TEST(MenuBarMoveGeometryTest, noPathCrossesTheNotch) {
    const auto goes = [](double from, double to) { return MenuBarMove::pathAvoidsNotch(from, to, notched); };
    EXPECT_TRUE(goes(1200, 850));
    EXPECT_TRUE(goes(600, 665));
    EXPECT_FALSE(goes(1200, 849));
    EXPECT_FALSE(goes(1200, 600));
    EXPECT_FALSE(goes(600, 900));
    EXPECT_FALSE(goes(600, 666));
    EXPECT_TRUE(MenuBarMove::pathAvoidsNotch(1200, 600, plain));
}

TEST(MenuBarMoveGeometryTest, neighborIsTheFirstWhollyVisibleItemRightOfTheGlyph) {
    const Rect glyph{1200, 0, 26, 30};
    const std::vector<Rect> frames{
        {1300, 3, 20, 24}, {1225, 3, 30, 24}, {1150, 3, 30, 24}, {1227, 80, 30, 24}};
    EXPECT_EQ(MenuBarMove::visibleNeighbor(frames, glyph, std::vector{plain}), frames[1]);
    EXPECT_EQ(MenuBarMove::visibleNeighbor({}, glyph, std::vector{plain}), std::nullopt);
}

} // namespace
} // namespace tavrin
