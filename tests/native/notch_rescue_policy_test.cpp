#include "native/policy/lane_layout.h"
#include "native/policy/native_control_pinning.h"
#include "native/policy/native_item_catalog.h"
#include "native/policy/notch_rescue_policy.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

const Screen notched{{0, 0, 1512, 982}, 2, 32, Rect{0, 0, 665, 32}, Rect{850, 0, 662, 32}};
const Screen plain{{1512, 0, 1920, 1080}, 1, 30, {}, {}};

MenuBarItemSnapshot itemAt(const std::string& id, Rect frame) {
    MenuBarItemSnapshot item;
    item.id = id;
    item.bundleIdentifier = id;
    item.processIdentifier = 7;
    item.frame = frame;
    return item;
}

std::vector<std::string> trapped(std::vector<MenuBarItemSnapshot> items,
                                 const std::vector<Screen>& screens = {notched}) {
    std::vector<std::string> names;
    for (const auto& item : NotchRescuePolicy::trappedItems(items, screens)) names.push_back(item.id);
    return names;
}

using Names = std::vector<std::string>;

TEST(NotchRescuePolicy, findsWhatStandsOutsideTheLane) {
    for (const auto& frame : {Rect{851, 4, 30, 24}, Rect{1480, 4, 31, 24}, Rect{900, 20, 30, 24}})
        EXPECT_EQ(trapped({itemAt("a", frame)}), Names{}) << frame.x;
    for (const auto& frame :
         {Rect{850.9, 4, 30, 24}, Rect{1481.1, 4, 30, 24}, Rect{700, 4, 30, 24}, Rect{500, 4, 30, 24},
          Rect{-200, 4, 30, 24}, Rect{900, 4, 30, 0}, Rect{1000, 500, 30, 24}}) {
        EXPECT_EQ(trapped({itemAt("a", frame)}), Names{"a"}) << frame.x;
        EXPECT_EQ(trapped({itemAt("a", frame)}, {plain}), Names{}) << frame.x;
    }
    EXPECT_EQ(trapped({}), Names{});
}

TEST(NotchRescuePolicy, trapsNothingOnPlainScreensBesideANotchedOne) {
    const std::vector<Screen> both{notched, plain};
    auto parked = itemAt("parked", {1600, 4, 30, 24});
    parked.isParked = true;
    const std::vector<MenuBarItemSnapshot> items{itemAt("plain", {1600, 4, 30, 24}),
                                                 itemAt("stacked", {1602, 4, 30, 24}), parked,
                                                 itemAt("nowhere", {4000, 4, 30, 24})};
    EXPECT_EQ(trapped(items, both), (Names{"parked", "nowhere"}));
    EXPECT_EQ(trapped(items, {plain}), Names{});
}

TEST(NotchRescuePolicy, takesStackedItemsForPushedOut) {
    EXPECT_EQ(trapped({itemAt("a", {900, 4, 30, 24}), itemAt("b", {903.9, 4, 30, 24})}), (Names{"a", "b"}));
    EXPECT_EQ(trapped({itemAt("a", {900, 4, 30, 24}), itemAt("b", {904, 4, 30, 24})}), Names{});
    EXPECT_EQ(trapped({itemAt("a", {900, 4, 30, 24}), itemAt("b", {900, 4, 0, 24})}), Names{"b"});
}

TEST(LaneLayout, beginsWithTheLeftmostItemRightOfTheNotch) {
    const std::vector<Rect> frames{{1000, 4, 30, 24}, {900, 4, 50, 24}, {1036, 4, 20, 24},
                                   {1064, 4, 20, 24}, {500, 4, 20, 24}, {1600, 4, 30, 24}};
    const std::vector<Screen> both{plain, notched};
    EXPECT_EQ(laneLayout(frames, both), (LaneLayout{notched.frame, 900, 8}));
    EXPECT_EQ(laneLayout(std::span(frames).first(1), both), (LaneLayout{notched.frame, 1000, 0}));
    EXPECT_FALSE(laneLayout(frames, std::vector{plain}));
    EXPECT_FALSE(laneLayout(std::span(frames).last(2), both));
}

TEST(NativeItemCatalog, letsTheNeighbourOfTheLaneBackFirst) {
    NativeItemCatalog catalog;
    catalog.merge(std::vector{itemAt("B", {600, 4, 30, 24}), itemAt("A::1", {700, 4, 30, 24}),
                              itemAt("A::2", {400, 4, 30, 24}), itemAt("d", {500, 4, 30, 24})});
    catalog.merge(std::vector{itemAt("B", {0, 0, 0, 0})});
    EXPECT_EQ(catalog.releaseOrder({"a", "b", "c", "d"}), (Names{"b", "d", "a", "c"}));
    EXPECT_EQ(catalog.measures().itemsOfUnits.at("a"), (std::set<std::string>{"A::1", "A::2"}));
    EXPECT_TRUE(catalog.measures().itemWidths.empty());
    catalog.recordWidths(std::vector{itemAt("B", {600, 4, 33, 24})});
    EXPECT_EQ(catalog.measures().itemWidths.at("B"), 33);
    catalog.retain({8});
    EXPECT_TRUE(catalog.measures().itemsOfUnits.empty());
}

TEST(NativeControlPinning, leadsTheRowOfItsStatusArea) {
    using NativeControlPinning::dragDestination;
    using NativeControlPinning::leads;
    const NativeControlPinning::HorizontalRange range{850, 1512};
    const Rect control{1200, 4, 26, 24};
    const std::vector<Rect> row{{1000, 4, 30, 24}, {1100, 2, 30, 28}, {1201, 4, 26, 24}, {900, 60, 30, 24},
                                {800, 4, 30, 24},  {950, 4, 0, 24},   {1490, 4, 30, 24}};
    EXPECT_EQ(dragDestination(control, row, range), (Point{1000 - 4 - 13, 16}));
    EXPECT_FALSE(leads(control, row, range));
    const Rect first{960, 4, 26, 24};
    EXPECT_FALSE(dragDestination(first, row, range));
    EXPECT_TRUE(leads(first, row, range));
    EXPECT_FALSE(dragDestination(control, row, {971, 1512})) << "there is no room before the row";
    EXPECT_TRUE(dragDestination(control, row, {970, 1512}));
    EXPECT_FALSE(dragDestination(control, std::vector<Rect>{{1204, 4, 30, 24}}, range))
        << "the control itself";
    EXPECT_FALSE(leads(control, {}, range));
}

} // namespace
} // namespace tavrin
