#include "gestures/command_drag.h"

#include <gtest/gtest.h>

namespace tavrin {

TEST(CommandDragSteps, followTheDistance) {
    const auto steps = [](double distance) {
        return CommandDrag{.from = {500, 15}, .to = {500 - distance, 15}}.stepCount();
    };
    EXPECT_EQ(steps(0), 8);
    EXPECT_EQ(steps(100), 8);
    EXPECT_EQ(steps(161.9), 8);
    EXPECT_EQ(steps(162), 9);
    EXPECT_EQ(steps(400), 22);
    EXPECT_EQ(steps(2000), 28);
    EXPECT_EQ(steps(1e300), 28);
    EXPECT_EQ((CommandDrag{.from = {0, 0}, .to = {100, 10}}.stepPoint(3, 10)), (Point{30, 3}));
    EXPECT_EQ((CommandDrag{.from = {0.1, 0}, .to = {100.7, 10}}.stepPoint(10, 10)), (Point{100.7, 10}));
}

} // namespace tavrin
