#include "scenarios/pin_acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

const std::string inUse = "That shortcut is in use by another app";
const std::string shortcutKey = "Skerrow.toggleShortcut";

void key(TavrinMac& mac, const std::string& name, const std::vector<std::string>& modifiers) {
    mac.done({{"do", "key"}, {"key", name}, {"modifiers", modifiers}});
}

void pressUsualAndWait(TavrinMac& mac) {
    key(mac, "h", {"control", "option"});
    mac.wait(2);
}

void openSettings(TavrinMac& mac) {
    mac.rightClickItem(tavrinBundle);
    mac.press("Settings…");
    mac.wait(1);
}

json recorder(TavrinMac& mac) {
    for (const auto& shown : {"Record Shortcut", "Type shortcut…", "⌃⌥H", "⌥⌘K", "⌃⌥K"})
        for (const auto& node : mac.find(shown))
            if (node.value("label", "") == "Toggle shortcut") return node;
    return json::object();
}

std::string shownShortcut(TavrinMac& mac) { return recorder(mac).value("value", "absent"); }

void record(TavrinMac& mac, const std::string& name, const std::vector<std::string>& modifiers) {
    mac.press(shownShortcut(mac));
    key(mac, name, modifiers);
}

TEST(ToggleShortcut, hidesAndRevealsFromAnyApplication) {
    auto mac = started(trustedMac("classic-display", setUp()));
    for (const auto& place : {json{700, 600}, json{30, 12}}) {
        mac.done({{"do", "click"}, {"at", place}});
        pressUsualAndWait(mac);
        EXPECT_TRUE(isCollapsed(mac));
        EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");
        pressUsualAndWait(mac);
        EXPECT_FALSE(isCollapsed(mac));
        key(mac, "h", {"control", "option", "shift"});
        mac.wait(2);
        EXPECT_FALSE(isCollapsed(mac)) << "other modifiers are another shortcut";
    }
}

TEST(ToggleShortcut, isTheStoredOneAndNoneBeforeAccess) {
    auto options =
        trustedMac("classic-display",
                   setUp({}, {{shortcutKey, {{"enabled", true}, {"keyCode", 40}, {"modifiers", 0x180000}}}}));
    options.changes["accessibilityTrusted"] = false;
    auto mac = started(options);
    EXPECT_EQ(mac.done({{"do", "key"}, {"key", "k"}, {"modifiers", {"option", "command"}}})["handled"],
              false);
    mac.set("trusted", true);
    mac.wait(8);
    key(mac, "k", {"option", "command"});
    mac.wait(2);
    EXPECT_TRUE(isCollapsed(mac));
    pressUsualAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac)) << "the default is not in force beside it";
}

TEST(ToggleShortcut, isRecordedInTheSettingsAndOutlivesARestart) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openSettings(mac);
    EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
    EXPECT_TRUE(mac.shows("Press a key with Control, Option or Command. Esc cancels."));
    record(mac, "k", {"option", "command"});
    EXPECT_EQ(shownShortcut(mac), "⌥⌘K");
    EXPECT_EQ(mac.defaults()[shortcutKey],
              (json{{"enabled", true}, {"keyCode", 40}, {"modifiers", 0x180000}}));
    pressUsualAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac)) << "the old one is free";
    mac.crash();
    mac.start();
    mac.wait(3);
    key(mac, "k", {"option", "command"});
    mac.wait(2);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(ToggleShortcut, canBeChangedWhileTheItemsAreHidden) {
    auto mac = started(trustedMac("classic-display", setUp()));
    pressUsualAndWait(mac);
    openSettings(mac);
    record(mac, "k", {"control", "option"});
    EXPECT_TRUE(isCollapsed(mac)) << "recording toggles nothing";
    key(mac, "k", {"control", "option"});
    mac.wait(2);
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(ToggleShortcut, doesNotActWhileANewOneIsTypedAndCanBeTypedAgain) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openSettings(mac);
    record(mac, "h", {"control", "option"});
    mac.wait(2);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
    for (const bool cancelsByEscape : {true, false}) {
        mac.press("⌃⌥H");
        if (cancelsByEscape)
            key(mac, "escape", {});
        else
            mac.done({{"do", "click"}, {"at", {700, 900}}});
        EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
        const bool wasCollapsed = isCollapsed(mac);
        pressUsualAndWait(mac);
        EXPECT_NE(isCollapsed(mac), wasCollapsed) << "it acts again after being cancelled";
    }
}

TEST(ToggleShortcut, isRefusedWhereAPinHasIt) {
    const json stored{{"hotKey", {{"keyCode", 40}, {"modifiers", 0x180000}}}};
    auto mac = started(macWithPins({pin("Sync", {"Sync Now"}, stored)}));
    openSettings(mac);
    record(mac, "k", {"option", "command"});
    EXPECT_TRUE(mac.shows("Already used by the pin \"Sync\"."));
    EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
}

TEST(ToggleShortcut, oneThatAnotherAppHasIsRefusedAndTheOldOneStays) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("hotKeyTaken", {{"key", "k"}, {"modifiers", {"option", "command"}}});
    openSettings(mac);
    record(mac, "k", {"option", "command"});
    EXPECT_TRUE(mac.shows(inUse));
    EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
    EXPECT_EQ(storedText(mac, shortcutKey), "absent");
    mac.press("⌃⌥H");
    key(mac, "escape", {});
    EXPECT_TRUE(mac.shows(inUse)) << "a cancellation changes nothing";
    pressUsualAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac));
    record(mac, "k", {"control", "option"});
    EXPECT_FALSE(mac.shows(inUse));
    EXPECT_EQ(shownShortcut(mac), "⌃⌥K");
}

TEST(ToggleShortcut, oneThatIsTakenAtLaunchSaysSo) {
    auto options = trustedMac("classic-display", setUp());
    options.changes["hotKeysTaken"] = {
        {{"keyCode", 4}, {"modifiers", {"control", "option"}}, {"stopsPresses", true}}};
    auto mac = started(options);
    pressUsualAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    openSettings(mac);
    EXPECT_TRUE(mac.shows(inUse));
    EXPECT_EQ(shownShortcut(mac), "⌃⌥H");
}

TEST(ToggleShortcut, canBeSwitchedOff) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openSettings(mac);
    mac.press("Clear");
    EXPECT_EQ(shownShortcut(mac), "Record Shortcut");
    EXPECT_EQ(mac.defaults()[shortcutKey], (json{{"enabled", false}}));
    pressUsualAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    record(mac, "h", {"control", "option"});
    pressUsualAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Settings, areUsedByTheKeyboardAlone) {
    auto options = trustedMac("classic-display", setUp());
    options.changes["updater"] = "manual";
    auto mac = started(options);
    const auto focused = [&](const std::string& text) {
        const auto nodes = mac.find(text);
        return !nodes.empty() && nodes.back().value("focused", false);
    };
    openSettings(mac);
    key(mac, "tab", {});
    EXPECT_TRUE(focused("Start Tavrin at login"));
    key(mac, "tab", {});
    EXPECT_TRUE(focused("⌃⌥H"));
    key(mac, "tab", {});
    key(mac, "return", {});
    EXPECT_EQ(shownShortcut(mac), "Record Shortcut") << "Return pressed Clear";
    for (int i = 0; i < 5 && !focused("Automatically update Tavrin"); ++i) key(mac, "tab", {});
    key(mac, "space", {});
    EXPECT_TRUE(mac.mac().updater()->checksAutomatically());
    for (const bool byEscape : {true, false}) {
        EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
        key(mac, byEscape ? "escape" : "w",
            byEscape ? std::vector<std::string>{} : std::vector<std::string>{"command"});
        EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
        openSettings(mac);
    }
}

TEST(Settings, leadToTheAccessibilitySettingsWhileAccessIsMissing) {
    auto mac = started(trustedMac("classic-display", setUp()));
    openSettings(mac);
    EXPECT_FALSE(mac.shows("Open Accessibility Settings"));
    mac.set("trusted", false);
    openSettings(mac);
    mac.press("Open Accessibility Settings");
    mac.press("Tavrin");
    mac.wait(3);
    EXPECT_TRUE(mac.shows("Accessibility access is on."));
}

} // namespace
} // namespace mac_model
