#include "scenarios/acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

constexpr const char* mainPosition = "NSStatusItem Preferred Position Skerrow.Main.v";
constexpr const char* spacerPosition = "NSStatusItem Preferred Position Skerrow.Spacer.v";
constexpr const char* separatorPosition = "NSStatusItem Preferred Position Skerrow.Separator.v";

TEST(StoredValues, ofTheWrongTypeAreTheDefault) {
    struct Case {
        const char* key;
        json value;
        bool startsCollapsed;
    };

    const Case cases[]{
        {"Skerrow.shouldStartCollapsed", "yes", false},
        {"Skerrow.shouldStartCollapsed", json::array({true}), false},
        {"Skerrow.shouldStartCollapsed", 1, true},
        {"Skerrow.shouldStartCollapsed", 0, false},
        {"Skerrow.statusItemAutosaveVersion", "7", true},
        {"Skerrow.statusItemAutosaveVersion", -3, true},
        {"Skerrow.statusItemAutosaveVersion", 2.5, true},
        {"Skerrow.hiddenItemIdentifiers", "org.example.notes", true},
        {"Skerrow.hiddenItemIdentifiers", json::array({5, true}), true},
        {"Skerrow.hiddenItemIdentifiers", json{{"a", 1}}, true},
        {"Skerrow.pendingFirstRunHint", "perhaps", true},
        {"Skerrow.toggleShortcut", 3, true},
    };
    for (const auto& c : cases) {
        auto stored = setUp({}, {{"Skerrow.shouldStartCollapsed", true}});
        stored[c.key] = c.value;
        auto mac = started(trustedMac("classic-display", stored), 3);
        EXPECT_EQ(isCollapsed(mac), c.startsCollapsed) << c.key << ' ' << c.value;
        EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty()) << c.key << ' ' << c.value;
        EXPECT_TRUE(mac.defaults().contains(std::string(mainPosition) + "1")) << c.key << ' ' << c.value;
    }
}

TEST(StoredValues, aPlaceOfTheWrongTypeIsAPlaceAndStays) {
    const auto key = std::string(mainPosition) + "1";
    TavrinMac mac(trustedMac("classic-display", setUp({}, {{key, "left"}})));
    mac.wait(0.2);
    EXPECT_EQ(mac.defaults()[key], "left");
    mac.wait(3);
    clickControl(mac);
    mac.wait(2);
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(StoredValues, anEmptyChoiceIsNoFreshInstall) {
    auto mac = started(trustedMac("classic-display", {{"Skerrow.hiddenItemIdentifiers", json::array()}}), 3);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u) << "the configure window is owed";
    EXPECT_EQ(mac.defaults()["Skerrow.hiddenItemIdentifiers"], json::array());
    EXPECT_EQ(mac.defaults()["Skerrow.didPresentInitialConfiguration"], true);
    EXPECT_FALSE(isCollapsed(mac));
}

TEST(StoredValues, earlierVersionsOfTheItemsPlacesAreTidiedAway) {
    auto options =
        trustedMac("classic-display", setUp({}, {{"Skerrow.statusItemAutosaveVersion", 3},
                                                 {std::string(mainPosition) + "1", 9},
                                                 {std::string(spacerPosition) + "2", 9},
                                                 {"NSStatusItem Visible Skerrow.Main.v2", true},
                                                 {"NSStatusItem VisibleCC Skerrow.Main.v2", true},
                                                 {std::string(separatorPosition) + "2", 9},
                                                 {std::string(mainPosition) + "4", 9},
                                                 {"NSStatusItem Preferred Position Item-0", 9},
                                                 {"Skerrow.rescuedItemIdentifiers", json::array({"x"})}}));
    options.changes["defaults"]["byHost"][".GlobalPreferences"] = {
        {std::string(mainPosition) + "2_v6", 9}, {"NSStatusItem Preferred Position Other_v6", 9}};
    auto mac = started(options, 3);
    std::vector<std::string> places;
    for (const auto& [key, value] : mac.defaults().items())
        if (key.starts_with("NSStatusItem")) places.push_back(key);
    EXPECT_EQ(places, (std::vector<std::string>{
                          "NSStatusItem Preferred Position Item-0", std::string(mainPosition) + "3",
                          std::string(mainPosition) + "4", std::string(spacerPosition) + "3"}));
    const auto global =
        mac.done({{"do", "defaults"}, {"domain", ".GlobalPreferences"}, {"host", "current"}})["values"];
    EXPECT_FALSE(global.contains(std::string(mainPosition) + "2_v6"));
    EXPECT_TRUE(global.contains("NSStatusItem Preferred Position Other_v6"));
    EXPECT_FALSE(mac.defaults().contains("Skerrow.rescuedItemIdentifiers"));
}

TEST(StoredValues, aStaleFlagOfControlCenterHidesNothing) {
    const std::string flag = "NSStatusItem VisibleCC Skerrow.";
    auto options =
        trustedMac("notched-laptop", setUp({}, {{flag + "Main.v1", 0}, {flag + "Spacer.v1", false}}));
    options.changes["defaults"]["byHost"][".GlobalPreferences"][flag + "Main.v1_v6"] = false;
    auto mac = started(options, 3);
    EXPECT_TRUE(mac.control()["drawn"]);
    EXPECT_FALSE(spacer(mac).is_null());
    EXPECT_EQ(mac.defaults().dump().find("VisibleCC"), std::string::npos);
    EXPECT_EQ(mac.defaults().value("Skerrow.statusItemAutosaveVersion", 1), 1) << "no repair was needed";
}

TEST(StoredValues, theSeparatorOfOlderReleasesPassesItsPlaceToTheControl) {
    const double seat = 500.5;
    for (const bool byHost : {false, true}) {
        auto options = trustedMac("classic-display", setUp());
        auto& changes = options.changes;
        if (byHost) {
            changes["defaults"]["byHost"][".GlobalPreferences"][std::string(separatorPosition) + "1_v6"] =
                seat;
        } else {
            changes["defaults"][tavrinBundle][std::string(separatorPosition) + "1"] = seat;
        }
        auto mac = started(options, 3);
        EXPECT_EQ(mac.defaults()[std::string(mainPosition) + "1"], seat);
        EXPECT_EQ(mac.defaults()[std::string(spacerPosition) + "1"], seat + 0.01);
        EXPECT_FALSE(mac.defaults().contains(std::string(separatorPosition) + "1"));
        const auto bar = mac.look()["menuBar"];
        EXPECT_NE(bar[bar.size() - 3]["owner"], tavrinBundle) << "the control has left the right end";
    }
}

TEST(Repair, aControlBehindTheNotchStartsOverUnderAFreshName) {
    TavrinMac mac(trustedMac("notched-laptop", setUp({}, {{"Skerrow.shouldStartCollapsed", true}})));
    mac.set("behindNotch", {{tavrinBundle, "presentItems"}});
    mac.wait(3);
    EXPECT_EQ(storedText(mac, "Skerrow.statusItemAutosaveVersion"), "2");
    EXPECT_TRUE(mac.defaults().contains(std::string(mainPosition) + "2"));
    EXPECT_FALSE(mac.defaults().contains(std::string(mainPosition) + "1"));
    EXPECT_TRUE(isCollapsed(mac));
}

TEST(Repair, aControlThatStaysBehindTheNotchIsReportedAfterOneRepair) {
    auto mac = started(trustedMac("notched-laptop", setUp()));
    mac.rightClickItem(tavrinBundle);
    mac.set("behindNotch", {{tavrinBundle, "allItems"}});
    mac.press("Hide Configured Items");
    mac.wait(5);
    EXPECT_TRUE(mac.shows(
        "Tavrin couldn’t restore its menu bar control to the right side of the notch. Quit and reopen "
        "the app to retry the layout repair."));
    EXPECT_EQ(storedText(mac, "Skerrow.statusItemAutosaveVersion"), "2");
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "absent");
}

TEST(Repair, twoCallersShareOneRebuild) {
    auto mac = started(trustedMac("notched-laptop", setUp()));
    mac.rightClickItem(tavrinBundle);
    mac.set("behindNotch", {{tavrinBundle, "presentItems"}});
    mac.press("Hide Configured Items");
    mac.wait(1.4);
    clickControl(mac); // the rebuilt control is on the screen while the check still waits
    mac.wait(3);
    EXPECT_EQ(storedText(mac, "Skerrow.statusItemAutosaveVersion"), "2");
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(mac.itemsOf(tavrinBundle).size(), 2u);
}

} // namespace
} // namespace mac_model
