#include "scenarios/acts.h"

#include <gtest/gtest.h>
#include <set>

namespace mac_model {
namespace {

constexpr const char* hint = "Your menu bar items are tucked away here. Click to choose which ones show.";

std::vector<std::string> menuTexts(TavrinMac& mac) {
    std::vector<std::string> texts;
    for (const auto& surface : mac.surfacesOf(tavrinBundle)) {
        if (surface["kind"] != "menu") continue;
        for (const auto& entry : surface["children"]) texts.push_back(entry.value("text", "-"));
    }
    return texts;
}

TEST(Control, looksAndSaysWhatAClickWillDo) {
    auto mac = started(trustedMac("classic-display", setUp()));
    EXPECT_EQ(mac.control()["help"], "Tavrin: click to hide configured items; right-click to configure");
    EXPECT_EQ(mac.control()["symbol"], "chevron.left.2");
    clickControlAndWait(mac);
    EXPECT_EQ(mac.control()["help"], "Tavrin: click to reveal hidden items; right-click to configure");
    EXPECT_EQ(mac.control()["symbol"], "chevron.right.2");
}

json announcements(TavrinMac& mac) {
    json texts = json::array();
    for (const auto& said : mac.events()["said"]) texts.push_back(said["text"]);
    return texts;
}

TEST(Control, serveAssistiveTechnologyThatOnlyPresses) {
    auto mac = started(trustedMac("classic-display", setUp()));
    EXPECT_EQ(mac.control()["value"], "All items are shown");
    const auto id = mac.control()["id"];
    mac.done({{"do", "perform"}, {"statusItem", id}});
    mac.wait(1);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(mac.control()["value"], "Items are hidden");
    mac.done({{"do", "perform"}, {"statusItem", id}, {"action", "AXShowMenu"}});
    EXPECT_TRUE(mac.shows("Configure Items…"));
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Control, aClickWithControlHeldOpensTheMenu) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.done({{"do", "click"}, {"item", tavrinBundle}, {"modifiers", {"control"}}});
    mac.wait(0.5);
    EXPECT_TRUE(mac.shows("Configure Items…"));
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(Control, whatGoesWrongIsSaid) {
    auto mac = started(trustedMac("notched-laptop", setUp()));
    mac.set("behindNotch", {{tavrinBundle, "allItems"}});
    mac.wait(1);
    (void)mac.events();
    mac.done({{"do", "key"}, {"key", "h"}, {"modifiers", {"control", "option"}}});
    mac.wait(10);
    EXPECT_EQ(announcements(mac),
              json{"Tavrin couldn’t restore its menu bar control to the right side of the notch. Quit and "
                   "reopen the app to retry the layout repair."});
}

TEST(Control, commandCommaOpensSettingsWhereTavrinIsActive) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.start();
    mac.wait(1);
    mac.done({{"do", "key"}, {"key", ","}, {"modifiers", {"command"}}});
    mac.wait(1);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["title"], "Tavrin Settings");
}

TEST(Control, commandCommaKeepsToTheWelcomeWithoutAccess) {
    TavrinMac mac;
    mac.wait(1);
    mac.done({{"do", "key"}, {"key", ","}, {"modifiers", {"command"}}});
    mac.wait(1);
    ASSERT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["title"], "Welcome to Tavrin");
}

TEST(Control, theMenuHasItsEntriesInOrderAndFollowsTheState) {
    for (const bool collapsed : {false, true}) {
        auto mac = started(
            trustedMac("classic-display", setUp({}, {{"Skerrow.shouldStartCollapsed", collapsed}})), 3);
        mac.rightClickItem(tavrinBundle);
        EXPECT_EQ(isCollapsed(mac), collapsed) << "a right click never toggles";
        const auto texts = menuTexts(mac);
        const std::vector<std::string> expected{"Configure Items…",
                                                collapsed ? "Show All Items" : "Hide Configured Items",
                                                "Refresh Item List",
                                                "-",
                                                "Settings…",
                                                "-",
                                                texts.at(6),
                                                "About Tavrin",
                                                "Check for Updates…",
                                                "Automatically Update Tavrin",
                                                "-",
                                                "Quit Tavrin"};
        EXPECT_EQ(texts, expected);
        EXPECT_TRUE(texts.at(6).starts_with("Version "));
        for (const char* text : {texts.at(6).c_str(), "Check for Updates…", "Automatically Update Tavrin"}) {
            EXPECT_EQ(mac.find(text).at(0).value("enabled", true), false)
                << text << ": no updater is bundled";
        }
        mac.press(texts.at(1));
        mac.wait(1);
        EXPECT_NE(isCollapsed(mac), collapsed);
    }
}

TEST(Control, theMenuReachesTheWindowsAndQuits) {
    auto mac = started(trustedMac("classic-display", setUp()));
    const auto choose = [&](const std::string& title) {
        mac.rightClickItem(tavrinBundle);
        mac.press(title);
        mac.wait(1);
    };
    choose("Settings…");
    EXPECT_TRUE(mac.shows("Accessibility access is on."));
    choose("About Tavrin");
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 2u);
    choose("Configure Items…");
    EXPECT_TRUE(mac.shows("Hidden"));
    choose("Quit Tavrin");
    EXPECT_FALSE(mac.mac().program().isRunning());
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

TEST(Control, switchesAutomaticUpdatesOfABundledUpdater) {
    auto options = trustedMac("classic-display", setUp());
    options.changes["updater"] = "automatic";
    auto mac = started(options);
    for (const bool wasAutomatic : {true, false}) {
        mac.rightClickItem(tavrinBundle);
        EXPECT_EQ(mac.find("Automatically Update Tavrin").at(0).value("checked", false), wasAutomatic);
        mac.press("Automatically Update Tavrin");
    }
    EXPECT_TRUE(mac.mac().updater()->checksAutomatically());
    EXPECT_TRUE(mac.mac().updater()->downloadsAutomatically());
}

TEST(FirstRunHint, aClickOnTheControlOpensTheConfigureWindowInstead) {
    auto mac = started(trustedMac("classic-display"), 3);
    ASSERT_TRUE(mac.shows(hint));
    EXPECT_EQ(storedText(mac, "Skerrow.pendingFirstRunHint"), "true");
    clickControl(mac);
    EXPECT_FALSE(mac.shows(hint));
    EXPECT_EQ(storedText(mac, "Skerrow.pendingFirstRunHint"), "false");
    mac.wait(1);
    EXPECT_TRUE(mac.shows("Hidden"));
    clickControlAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac)) << "the next click toggles: the window had everything revealed";
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 0u);
}

TEST(FirstRunHint, aMenuThatThePressWouldNotOpenIsRefusedBeforeIt) {
    auto mac = started(trustedMac("classic-display"), 3);
    ASSERT_TRUE(mac.shows(hint));
    EXPECT_EQ(mac.refused({{"do", "menu"}, {"path", {"Tavrin", "Settings…"}}}),
              "\"menu\": a popover at that item is open, which the press would close.");
    mac.wait(2);
    EXPECT_TRUE(mac.shows(hint));
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(FirstRunHint, glowsWithoutMovingWhereMotionIsReduced) {
    auto mac = started(trustedMac("classic-display"), 3);
    const auto glows = [&mac] {
        std::set<double> seen;
        for (int i = 0; i < 30; ++i) {
            mac.wait(0.2);
            seen.insert(mac.control().value("glow", 0.0));
        }
        return seen;
    };
    EXPECT_EQ(glows(), (std::set{0.4, 1.0}));
    mac.set("reducedMotion", true);
    mac.wait(2);
    EXPECT_EQ(glows(), std::set{1.0});
    clickControlAndWait(mac);
    EXPECT_FALSE(mac.control().contains("glow"));
}

TEST(FirstRunHint, aClickElsewhereOnlyClosesIt) {
    auto mac = started(trustedMac("classic-display"), 3);
    mac.done({{"do", "click"}, {"at", {700, 600}}});
    mac.wait(1);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    EXPECT_EQ(storedText(mac, "Skerrow.pendingFirstRunHint"), "false");
    clickControlAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac)) << "the next click toggles";
}

TEST(FirstRunHint, isOwedUntilClosedOnce) {
    auto mac = started(trustedMac("classic-display"), 3);
    mac.crash();
    mac.start();
    mac.wait(3);
    EXPECT_TRUE(mac.shows(hint));
}

TEST(Control, theCheckBoxForUpdatesInTheSettingsTicks) {
    auto options = trustedMac("classic-display", setUp());
    options.changes["updater"] = "manual";
    auto mac = started(options);
    mac.rightClickItem(tavrinBundle);
    mac.press("Settings…");
    mac.wait(1);
    for (const bool isTicked : {true, false}) {
        mac.press("Automatically update Tavrin");
        mac.wait(0.1);
        EXPECT_EQ(mac.find("Automatically update Tavrin").at(0).value("checked", false), isTicked);
        EXPECT_EQ(mac.mac().updater()->checksAutomatically(), isTicked);
    }
}

TEST(FirstRunHint, aRightClickSettlesOneThatIsOwed) {
    auto mac = started(trustedMac("classic-display", setUp({}, {{"Skerrow.pendingFirstRunHint", true}})), 3);
    ASSERT_FALSE(mac.shows(hint)) << "nothing is hidden yet";
    mac.rightClickItem(tavrinBundle);
    EXPECT_FALSE(menuTexts(mac).empty());
    EXPECT_EQ(storedText(mac, "Skerrow.pendingFirstRunHint"), "false");
}

} // namespace
} // namespace mac_model
