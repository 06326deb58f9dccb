#include "scenarios/acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

// The crowded menu bar of macOS 27, which its agent draws, under each thing that nobody has settled of it.

TavrinMacOptions hostedMac(const std::string& setting = {}, const std::string& value = {}) {
    auto options =
        trustedMac("macos-27", setUp({"org.example.notes", "com.sample.meters", "com.apple.Spotlight"}));
    if (!setting.empty()) options.model[setting] = value;
    return options;
}

json itemOf(TavrinMac& mac, const std::string& bundle) { return mac.itemsOf(bundle).at(0); }

/// The control may have no place in the crowded bar, and is reached by the shortcut then.
void toggle(TavrinMac& mac) {
    mac.done({{"do", "key"}, {"key", "h"}, {"modifiers", {"control", "option"}}});
    mac.wait(2);
}

TEST(HostedHiding, takesTheChosenItemsAwayAndBringsThemBack) {
    for (const auto& setting : uncertaintySettings)
        for (const auto value : setting.values) {
            SCOPED_TRACE(std::string(setting.name) + " " + std::string(value));
            auto mac = started(hostedMac(std::string(setting.name), std::string(value)), 6);
            const auto before = othersItems(mac);
            toggle(mac);
            for (const auto* bundle : {"org.example.notes", "com.sample.meters", "com.apple.Spotlight"})
                EXPECT_EQ(itemOf(mac, bundle)["why"], "restricted") << bundle;
            EXPECT_TRUE(mac.control()["drawn"]);
            EXPECT_TRUE(isCollapsed(mac));
            toggle(mac);
            EXPECT_FALSE(isCollapsed(mac));
            for (const auto& item : mac.look()["menuBar"]) EXPECT_NE(item.value("why", ""), "restricted");
            EXPECT_EQ(mac.stats()["flashes"], 0);
            mac.terminate();
            mac.wait(4);
            EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{});
        }
}

TEST(HostedHiding, tellsANewUserAboutItWhenTheBarHasClosedRanks) {
    TavrinMac mac({.changes = {{"macOS", {{"major", 27}}},
                               {"visibilityService", "accepts"},
                               {"accessibilityTrusted", true}}});
    mac.wait(10);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
}

TEST(HostedHiding, isUndoneByNoDragOfItsOwn) {
    for (const auto* drags : {"click", "work"}) {
        auto mac = started(hostedMac("hostedDrags", drags), 6);
        mac.events();
        std::size_t presses = 0;
        for (int time = 0; time < 3; ++time) {
            toggle(mac);
            mac.wait(5);
            EXPECT_TRUE(isCollapsed(mac)) << drags;
            for (const auto& event : mac.events()["events"]) presses += event["type"] == "leftMouseDown";
            toggle(mac);
        }
        EXPECT_LE(presses, 1U) << drags;
    }
}

TEST(HostedHiding, listsHiddenItemsAgainForConfigure) {
    auto mac = started(hostedMac(), 6);
    toggle(mac);
    mac.wait(3);
    mac.rightClickItem(tavrinBundle);
    mac.press("Configure Items…");
    mac.wait(2);
    EXPECT_TRUE(mac.shows("Notes") && mac.shows("Spotlight"));
    mac.key("escape");
    mac.wait(2);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(itemOf(mac, "org.example.notes")["why"], "restricted");
}

TEST(HostedHiding, goesOnWithANewAgent) {
    auto mac = started(hostedMac(), 6);
    toggle(mac);
    mac.set("quit", "com.apple.MenuBarAgent");
    mac.wait(1);
    mac.set(
        "launch",
        {{"bundleIdentifier", "com.apple.MenuBarAgent"}, {"name", "MenuBarAgent"}, {"policy", "accessory"}});
    mac.wait(3);
    EXPECT_EQ(itemOf(mac, "org.example.notes")["why"], "restricted");
    EXPECT_TRUE(isCollapsed(mac));
}

} // namespace
} // namespace mac_model
