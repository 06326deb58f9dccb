#include "native/policy/clock_place.h"
#include "native/policy/native_visibility_policy.h"

#include <gtest/gtest.h>

namespace tavrin::NativeVisibilityPolicy {
namespace {

using Bundles = std::set<std::string>;

const std::string wifi = "com.apple.controlcenter::identifier:com.apple.menuextra.wifi";
const std::string clockItem = "com.apple.controlcenter::identifier:com.apple.menuextra.clock";
const std::string own = "org.tavrin.Tavrin";

TEST(NativeVisibilityPolicy, hidesWholeApplicationsWithTheirOtherOwners) {
    EXPECT_EQ(hiddenBundleIdentifiers({"Org.Example.App::item:1", "org.example.app", wifi}),
              (Bundles{"org.example.app"}));
    EXPECT_EQ(hiddenBundleIdentifiers({"com.apple.Spotlight"}),
              (Bundles{"com.apple.campo", "com.apple.spotlight"}));
    EXPECT_EQ(hiddenBundleIdentifiers({"com.apple.campo::x"}),
              (Bundles{"com.apple.campo", "com.apple.spotlight"}));
}

TEST(NativeVisibilityPolicy, withholdsNoFixedAndNoUnknownSystemItem) {
    const std::string start = "COM.apple.controlcenter::identifier:";
    EXPECT_EQ(hiddenSystemItemNumbers({wifi, start + "COM.APPLE.menuextra.Sound"}), (std::set{5, 6}));
    EXPECT_EQ(hiddenSystemItemNumbers({clockItem, start + "com.apple.menuextra.controlcenter",
                                       start + "com.apple.menuextra.sundial", "com.apple.controlcenter",
                                       "org.example::identifier:com.apple.menuextra.wifi"}),
              std::set<int>{});
}

TEST(NativeVisibilityPolicy, plansEverythingButWhatIsHidden) {
    const std::vector<std::string> running{"b.App", "A.app", "b.App", "a.app"};
    const auto all = plan({clockItem}, running, own);
    EXPECT_EQ(all.allowedBundleIdentifiers, (std::vector<std::string>{"A.app", "a.app", "b.App", own}));
    ASSERT_EQ(all.allowedSystemItems.size(), 256U);
    EXPECT_EQ(all.allowedSystemItems.back(), 255);
    const auto some = plan({wifi, "B.APP::x", own}, running, own);
    EXPECT_EQ(some.allowedBundleIdentifiers, (std::vector<std::string>{"A.app", "a.app", own}))
        << "the own item is always allowed";
    EXPECT_EQ(some.allowedSystemItems.size(), 255U);
    EXPECT_EQ(std::ranges::count(some.allowedSystemItems, 6), 0);
}

TEST(NativeVisibilityPolicy, plansTheRevealedBarOnlyWhereSomethingHasToBeWithheld) {
    const std::vector<Screen> notched{{{0, 0, 1512, 982}, 2, 32, Rect{0, 0, 665, 32}, Rect{850, 0, 662, 32}}};
    const std::vector<Screen> plain{{{0, 0, 1512, 982}, 2, 30, {}, {}}};
    const std::vector<std::string> running{"a", "b"};
    const auto planned = [&](const Expanded& state) { return expandedPlan(state, running, own); };
    const Expanded usual{.screens = notched, .rescued = {"b"}};
    const auto withholding = planned(usual);
    ASSERT_TRUE(withholding);
    EXPECT_EQ(withholding->allowedBundleIdentifiers, (std::vector<std::string>{"a", own}));
    EXPECT_TRUE(planned({.screens = notched, .rescued = {wifi, "b"}, .temporarilyAllowed = "b::x"}));
    EXPECT_FALSE(planned({.screens = plain, .rescued = {"b"}}));
    EXPECT_FALSE(planned({.screens = notched, .isCollapsed = true, .rescued = {"b"}}));
    EXPECT_FALSE(planned({.screens = notched, .isSuppressed = true, .rescued = {"b"}}));
    EXPECT_FALSE(planned({.screens = notched, .rescued = {}}));
    EXPECT_FALSE(planned({.screens = notched, .rescued = {"b"}, .temporarilyAllowed = "B::x"}));
    EXPECT_FALSE(planned({.screens = notched, .rescued = {wifi}, .temporarilyAllowed = wifi}));
    EXPECT_FALSE(planned({.screens = notched, .rescued = {"org.tavrin.tavrin"}}));
}

TEST(NativeVisibilityPolicy, recordsTheApplicationForItsItems) {
    const HiddenSet before{"org.App::item:1", "ORG.app::item:2", "org.other", wifi};
    EXPECT_EQ(settingBundle("Org.app", true, before), (HiddenSet{"Org.app", "org.other", wifi}));
    EXPECT_EQ(settingBundle("Org.app", false, before), (HiddenSet{"org.other", wifi}));
    EXPECT_EQ(settingBundle("com.apple.campo", false, {"com.apple.Spotlight::x"}), HiddenSet{});
    EXPECT_EQ(setting("org.Other::item:3", false, before),
              (HiddenSet{"org.App::item:1", "ORG.app::item:2", wifi}));
    EXPECT_EQ(setting("org.new::item:3", true, {}), (HiddenSet{"org.new"}));
}

TEST(NativeVisibilityPolicy, recordsSystemItemsOneByOne) {
    const HiddenSet before{"COM.APPLE.controlcenter::identifier:com.apple.menuextra.WIFI", "org.app"};
    EXPECT_EQ(settingSystemItem("com.apple.menuextra.WiFi", false, before), (HiddenSet{"org.app"}));
    EXPECT_EQ(setting(wifi, true, before), (HiddenSet{wifi, "org.app"}));
    EXPECT_EQ(setting("com.apple.controlcenter::item:2", true, before), before) << "has no number";
}

TEST(NativeVisibilityPolicy, tellsWhatASetHidesAndWhatCanBeHidden) {
    EXPECT_TRUE(isHidden("org.app::item:2", {"ORG.APP::item:1"}));
    EXPECT_FALSE(isHidden("org.app2", {"org.app"}));
    EXPECT_TRUE(isHidden(wifi, {wifi}));
    EXPECT_FALSE(isHidden(clockItem, {clockItem}));
    EXPECT_TRUE(canWithhold("org.app") && canWithhold(wifi));
    EXPECT_FALSE(canWithhold(clockItem) || canWithhold("com.apple.controlcenter::item:2"));
}

TEST(NativeVisibilityPolicy, rescuesApplicationsAndSingleSystemItems) {
    EXPECT_EQ(unitOf("Org.App::item:1"), "org.app");
    EXPECT_EQ(unitOf("Com.Apple.ControlCenter::identifier:X"), "com.apple.controlcenter::identifier:x");
}

TEST(ClockPlace, reachesTwoPointsBeyondTheClock) {
    const std::vector<Rect> clock{{1400, 0, 100, 30}};
    for (const Point at : {Point{1398, 15}, Point{1502, 15}, Point{1450, 32}, Point{1398, 32}})
        EXPECT_TRUE(ClockPlace::isAt(at, clock)) << at.x << ", " << at.y;
    for (const Point at : {Point{1397, 15}, Point{1503, 15}, Point{1450, 33}})
        EXPECT_FALSE(ClockPlace::isAt(at, clock)) << at.x << ", " << at.y;
}

TEST(ClockPlace, isTheRightEndOfEachScreenWhenNobodyKnows) {
    const std::vector<Screen> screens{{{0, 0, 1512, 982}, 2, 32, {}, {}},
                                      {{1512, 10, 1000, 600}, 1, 20, {}, {}}};
    EXPECT_EQ(ClockPlace::fallbackClockRects(screens),
              (std::vector<Rect>{{1332, 0, 180, 32}, {2332, 10, 180, 24}}));
}

} // namespace
} // namespace tavrin::NativeVisibilityPolicy
