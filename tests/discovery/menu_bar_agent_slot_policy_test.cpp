#include "discovery/hosted/menu_bar_agent_slot_policy.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using Slot = MenuBarAgentSlot;
using namespace MenuBarAgentSlotPolicy;

Slot button(double x, double width, int window = 0, double y = 3) {
    return {Slot::Kind::button, window, {x, y, width, 24}};
}

Slot proxy(double x, double width, int window = 0, double y = 3) {
    return {Slot::Kind::proxy, window, {x, y, width, 24}};
}

bool keeps(const Slot& slot, std::vector<Slot> beside) {
    beside.push_back(slot);
    const auto kept = representativeSlots(beside).slots;
    return std::ranges::find(kept, slot) != kept.end();
}

TEST(AgentSlotPolicy, everyButtonCountsAlsoOneWithoutASize) {
    EXPECT_TRUE(keeps(button(0, 0), {}));
    EXPECT_TRUE(keeps(button(10, 30), {button(10, 30, 1)}));
}

TEST(AgentSlotPolicy, aProxyCountsLeftOfTheLeftmostButtonInItsRow) {
    EXPECT_TRUE(keeps(proxy(60, 40), {button(100, 30), button(130, 30)}));
    EXPECT_TRUE(keeps(proxy(60, 41), {button(100, 30)})) << "one point of overlap is nothing";
    EXPECT_FALSE(keeps(proxy(60, 41.5), {button(100, 30)}));
    EXPECT_FALSE(keeps(proxy(60, 200), {button(100, 30), button(200, 30)})) << "it stands for the whole";
    EXPECT_FALSE(keeps(proxy(60, 0), {button(100, 30)}));
    EXPECT_FALSE(keeps(proxy(60, 40), {})) << "left of nothing";
    EXPECT_FALSE(keeps(proxy(60, 40), {button(100, 30, 1)})) << "another window";
    EXPECT_FALSE(keeps(proxy(60, 40), {button(100, 0)})) << "a button without a size is nowhere";
    EXPECT_TRUE(keeps(proxy(60, 40, 0, 27), {button(100, 30)})) << "a button's height lower";
    EXPECT_FALSE(keeps(proxy(60, 40, 0, 28), {button(100, 30)}));
}

TEST(AgentSlotPolicy, oneWindowStandsForTheBarThatRepeatsOnEachDisplay) {
    const std::vector slots{button(500, 30, 1), button(100, 0),  button(400, 30, 1),
                            button(200, 30),    button(300, 30), button(80, 30, 2)};
    const auto result = representativeSlots(slots);
    EXPECT_EQ(result.leading, button(200, 30)) << "of two equally full windows the first";
    EXPECT_EQ(result.iconCount, 3);
    const std::vector all{button(100, 0),     button(200, 30),    button(300, 30),
                          button(400, 30, 1), button(500, 30, 1), button(80, 30, 2)};
    EXPECT_EQ(result.slots, all);
    const auto other = representativeSlots(
        std::vector{button(100, 0), button(200, 30), button(400, 30, 1), button(500, 30, 1)});
    EXPECT_EQ(other.leading, button(400, 30, 1)) << "what has no size fills nothing";
    EXPECT_EQ(representativeSlots({}), Representatives{});
}

TEST(AgentSlotPolicy, aRawFrameMayBeEmptyButNotAbsurd) {
    EXPECT_TRUE(isUsableRawFrame({-5000, 3}, {0, 0}));
    EXPECT_TRUE(isUsableRawFrame({0, 0}, {999, 99}));
    EXPECT_FALSE(isUsableRawFrame({0, 0}, {1000, 24}));
    EXPECT_FALSE(isUsableRawFrame({0, 0}, {30, 100}));
    EXPECT_FALSE(isUsableRawFrame({0, 0}, {-1, 24}));
    EXPECT_FALSE(isUsableRawFrame({NAN, 0}, {30, 24}));
    EXPECT_FALSE(isUsableRawFrame({0, 0}, {30, INFINITY}));
}

} // namespace
} // namespace tavrin
