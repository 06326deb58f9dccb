#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

constexpr const char* removed = "macOS removed Tavrin’s own control while hiding items";
constexpr const char* cannotApply =
    "Tavrin can’t move items while the menu bar isn’t visible. Leave full screen, or choose “Never” for "
    "“Automatically hide and show the menu bar” in System Settings, then apply again.";
const std::string autosaveVersion = "Skerrow.statusItemAutosaveVersion";
const std::vector<std::string> sights{"menuBarHidden", "screenLocked", "displayAsleep"};

json withShortcut(json more = json::object()) {
    more["Skerrow.toggleShortcut"] = {{"keyCode", 40}, {"modifiers", 0x180000}};
    return setUp({}, std::move(more));
}

void pressShortcut(TavrinMac& mac) {
    mac.done({{"do", "key"}, {"key", "k"}, {"modifiers", {"option", "command"}}});
    mac.wait(2);
}

/// Tavrin, whose start finds the menu bar out of sight.
TavrinMac startedUnseen(const std::string& sight, const std::string& placement, json stored) {
    auto options = trustedMac("classic-display", std::move(stored));
    options.model["placement"] = placement;
    TavrinMac mac(std::move(options));
    mac.set(sight, true);
    return mac;
}

TEST(HiddenBar, hidesAndRevealsByTheShortcutAndRepairsNothing) {
    auto mac = started(trustedMac("classic-display", withShortcut()));
    const auto before = othersItems(mac);
    mac.set("menuBarHidden", true);
    mac.wait(1);
    ASSERT_LT(mac.control()["frame"][1], 0);
    for (int round = 0; round < 2; ++round) {
        pressShortcut(mac);
        EXPECT_GT(spacerLength(mac), 1000);
        EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "true");
        pressShortcut(mac);
        EXPECT_EQ(spacerLength(mac), 0);
    }
    mac.set("menuBarHidden", false);
    mac.wait(3);
    EXPECT_EQ(othersItems(mac), before);
    EXPECT_EQ(storedText(mac, autosaveVersion), "absent") << "nothing was started over";
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

TEST(HiddenBar, isNoReasonToTakeBackWhatIsHidden) {
    for (const auto& sight : sights) {
        auto mac = started(trustedMac("classic-display", setUp()));
        clickControlAndWait(mac);
        const auto hidden = othersItems(mac);
        mac.set(sight, true);
        // Another display is the occasion to look after the control.
        mac.set("screens", {{{"frame", {0, 0, 1920, 1200}}, {"scale", 1}}});
        mac.wait(20);
        EXPECT_GT(spacerLength(mac), 1000) << sight;
        mac.set(sight, false);
        mac.wait(5);
        EXPECT_TRUE(isCollapsed(mac)) << sight;
        EXPECT_EQ(othersItems(mac), hidden) << sight;
        EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty()) << sight;
        EXPECT_EQ(mac.stats()["timers"], 0) << sight;
    }
}

TEST(HiddenBar, isJudgedWhenItIsBack) {
    for (const auto& sight : sights) {
        auto mac = started(trustedMac("classic-display", setUp()));
        clickControlAndWait(mac);
        mac.set(sight, true);
        mac.set("dropsOwnersOfLongItems", true);
        mac.set("screens", {{{"frame", {0, 0, 1920, 1200}}, {"scale", 1}}});
        mac.wait(20);
        EXPECT_GT(spacerLength(mac), 1000) << sight;
        EXPECT_EQ(mac.stats()["timers"], 0) << "nobody polls for " << sight;
        mac.set(sight, false);
        mac.wait(0.6);
        EXPECT_GT(spacerLength(mac), 1000) << "one look is not enough after " << sight;
        mac.wait(3);
        EXPECT_EQ(spacerLength(mac), 0) << sight;
        EXPECT_TRUE(showsPart(mac, removed)) << sight;
    }
}

TEST(HiddenBar, isHiddenAgainByAStartThatFindsItOutOfSight) {
    for (const auto& sight : sights) {
        for (const auto* placement : {"slow", "verySlow"}) {
            auto mac = startedUnseen(sight, placement, setUp({}, {{"Skerrow.shouldStartCollapsed", true}}));
            mac.wait(15);
            EXPECT_GT(spacerLength(mac), 1000) << sight << ' ' << placement;
            mac.set(sight, false);
            mac.wait(5);
            EXPECT_TRUE(isCollapsed(mac)) << sight << ' ' << placement;
            EXPECT_FALSE(mac.control().is_null());
            EXPECT_EQ(storedText(mac, autosaveVersion), "absent") << sight << ' ' << placement;
            EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty()) << sight << ' ' << placement;
        }
    }
}

TEST(HiddenBar, keepsAFreshInstallWaitingUntilTheUserCanSeeIt) {
    for (const auto& sight : sights) {
        auto mac = startedUnseen(sight, "slow", json::object());
        mac.wait(15);
        EXPECT_EQ(spacerLength(mac), 0) << sight;
        EXPECT_EQ(storedText(mac, "Skerrow.hiddenItemIdentifiers"), "absent") << sight;
        mac.set(sight, false);
        mac.wait(10);
        EXPECT_TRUE(isCollapsed(mac)) << sight;
        EXPECT_TRUE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
    }
}

TEST(HiddenBar, refusesToMoveItemsWithASentence) {
    auto mac = started(controlInMidBar({wifi}));
    openConfigure(mac);
    (void)mac.events();
    mac.set("menuBarHidden", true);
    mac.wait(1);
    mac.press("Apply and Hide");
    mac.wait(5);
    EXPECT_TRUE(mac.shows(cannotApply));
    EXPECT_TRUE(mac.events()["events"].empty());
    mac.set("menuBarHidden", false);
    mac.wait(1);
    mac.press("Apply and Hide");
    waitForApply(mac);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(HiddenBar, hidesOnApplyWhereNothingHasToMove) {
    auto mac = started(controlInMidBar({wifi}));
    openConfigure(mac);
    mac.press("Apply and Hide");
    waitForApply(mac);
    openConfigure(mac);
    (void)mac.events();
    mac.set("menuBarHidden", true);
    mac.wait(1);
    mac.press("Apply and Hide");
    mac.wait(5);
    EXPECT_FALSE(mac.shows(cannotApply));
    EXPECT_GT(spacerLength(mac), 1000);
    EXPECT_TRUE(mac.events()["events"].empty());
    mac.set("menuBarHidden", false);
    mac.wait(3);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

TEST(HiddenBar, ofALockedOrSleepingMacTakesNoCommandOfThePersons) {
    auto mac = started(trustedMac("classic-display", withShortcut()));
    mac.set("screenLocked", true);
    EXPECT_EQ(mac.refused({{"do", "key"}, {"key", "k"}, {"modifiers", {"option", "command"}}}),
              "The screen is locked.");
    mac.set("displayAsleep", true);
    EXPECT_EQ(mac.refused({{"do", "click"}, {"at", {10, 10}}}), "The display is asleep.");
    mac.set("displayAsleep", false);
    mac.set("screenLocked", false);
    pressShortcut(mac);
    EXPECT_TRUE(isCollapsed(mac));
}

} // namespace
} // namespace mac_model
