#include "driver/probe_program.h"
#include "support/tavrin_mac.h"
#include "views/view_builders.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace mac_model {
namespace {

using Log = std::vector<std::string>;

/// What assistive technology does with one thing among several, and where things open.
class Assistive : public ::testing::Test {
  protected:
    Assistive()
        : mac({.program = [this](tavrin::Platform& platform) {
            return std::make_unique<ProbeDelegate>(probe, platform);
        }}) {
        mac.settle();
    }

    json inSurface(const json& surface, json path, const std::string& text) {
        return {{"do", "perform"}, {"surface", surface["id"]}, {"path", std::move(path)}, {"text", text}};
    }

    json itemNamed(const std::string& name) {
        for (const auto& item : mac.look()["menuBar"])
            if (item["name"].get<std::string>().starts_with(name)) return item;
        return nullptr;
    }

    bool isOnSecondScreen(const json& surface) { return surface["frame"][0].get<double>() >= 1512; }

    Probe probe;
    TavrinMac mac;
};

TEST_F(Assistive, PressesExactlyTheViewInItsPlace) {
    probe.popover = probe.platform->presentation.makePopover(tavrin::PopoverBehavior::Transient, [] {});
    probe.popover->setContent(tavrin::column({tavrin::text("Two alike"), tavrin::spacer(),
                                              tavrin::button("Do", probe.logs("first")),
                                              tavrin::button("Do", probe.logs("second"))}));
    ASSERT_TRUE(probe.popover->show(*probe.item, *probe.item->frame()));
    const auto popover = mac.surfacesOf(tavrinBundle).at(0);
    const auto& nodes = popover["children"][0]["children"];
    ASSERT_EQ(nodes.size(), 3U) << "the spacer isn't told of";
    mac.done(inSurface(popover, {0, 2}, "Do"));
    mac.done(inSurface(popover, {0, 1}, "Do"));
    EXPECT_EQ(probe.log, (Log{"second", "first"}));
    for (const json& path : {json{0, 0}, json{0, 3}, json{1}, json{0, 1, 0}, json::array()})
        mac.refused(inSurface(popover, path, "Do"));
    mac.refused(inSurface(popover, {0, 1}, "Undo"));
    mac.refused(inSurface({{"id", 999}}, {0}, "Do"));
    EXPECT_EQ(probe.log.size(), 2U);
}

TEST_F(Assistive, OpensMenusAndChoosesInThem) {
    mac.done({{"do", "perform"}, {"menuTitle", 4}}); // View
    auto menu = mac.surfacesOf("com.apple.finder").at(0);
    const auto rowOf = [](const json& surface, const std::string& text) {
        const auto& rows = surface["children"];
        return std::ranges::find_if(rows, [&](const json& row) { return row.value("text", "") == text; }) -
               rows.begin();
    };
    mac.done(inSurface(menu, {rowOf(menu, "Sort By")}, "Sort By"));
    ASSERT_EQ(mac.surfacesOf("com.apple.finder").size(), 2U);
    const auto submenu = mac.surfacesOf("com.apple.finder").at(1);
    mac.done(inSurface(submenu, {rowOf(submenu, "Kind")}, "Kind"));
    EXPECT_EQ(mac.done({{"do", "events"}})["chosen"][0]["path"], (json{"Sort By", "Kind"}));
    mac.refused({{"do", "perform"}, {"menuTitle", 99}});
}

TEST_F(Assistive, PressesStatusItems) {
    mac.done({{"do", "perform"}, {"statusItem", itemNamed("Wi")["id"]}});
    EXPECT_EQ(itemNamed("Wi")["open"], true);
    const auto probeItem = itemNamed("Probe")["id"];
    mac.done({{"do", "perform"}, {"statusItem", probeItem}});
    const json showMenu{{"do", "perform"}, {"statusItem", probeItem}, {"action", "AXShowMenu"}};
    mac.refused(showMenu);
    probe.item->setAccessibilityActions({{"Show Menu", probe.logs("menu")}});
    mac.done(showMenu);
    EXPECT_EQ(probe.log, (Log{"left", "menu"}));
    mac.refused({{"do", "perform"}, {"statusItem", 9999}});
}

TEST_F(Assistive, WhatIsPressedOnASecondScreenOpensThere) {
    mac.set("screens", {{{"frame", {0, 0, 1512, 982}}}, {{"frame", {1512, 0, 1920, 1080}}}});
    mac.settle();
    const auto press = [&](const std::string& name, double shift) {
        const auto frame = itemNamed(name)["frame"];
        mac.done({{"do", "click"}, {"at", {frame[0].get<double>() + shift + 5, 10}}});
    };
    const double shift = 1920; // both bars end with the same item
    press("Wi", shift);
    const auto opened = mac.surfacesOf("com.apple.controlcenter").at(0);
    EXPECT_TRUE(isOnSecondScreen(opened)) << opened;
    mac.done({{"do", "key"}, {"key", "escape"}});
    press("Wi", 0);
    EXPECT_FALSE(isOnSecondScreen(mac.surfacesOf("com.apple.controlcenter").at(0)));
    mac.done({{"do", "key"}, {"key", "escape"}});
    press("Probe", shift);
    probe.popover = probe.platform->presentation.makePopover(tavrin::PopoverBehavior::Transient, [] {});
    probe.popover->setContent(tavrin::text("Hello"));
    ASSERT_TRUE(probe.popover->show(*probe.item, *probe.item->frame()));
    EXPECT_TRUE(isOnSecondScreen(mac.surfacesOf(tavrinBundle).at(0)));
}

TEST_F(Assistive, AWindowStopsBelowTheMenuBar) {
    probe.window = probe.platform->presentation.makeWindow("Probe Window", [] {});
    probe.window->setContent(tavrin::column({tavrin::text("Words")}, {.padding = 80}));
    probe.window->makeKeyAndOrderFront();
    mac.settle();
    const auto frame = mac.surfacesOf(tavrinBundle).at(0)["frame"];
    const double x = frame[0].get<double>() + frame[2].get<double>() / 2;
    const double y = frame[1].get<double>() + 14;
    mac.done({{"do", "drag"}, {"from", {x, y}}, {"to", {x + 20, 1}}});
    const auto moved = mac.surfacesOf(tavrinBundle).at(0)["frame"];
    EXPECT_EQ(moved[0], frame[0].get<double>() + 20);
    EXPECT_EQ(moved[1], mac.look()["screens"][0]["menuBarHeight"]);
}

} // namespace
} // namespace mac_model
