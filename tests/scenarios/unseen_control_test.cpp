#include "scenarios/applying_acts.h"

#include <string>

namespace mac_model {
namespace {

constexpr auto keptOut = "macOS keeps Tavrin out of the menu bar. Allow it in System Settings › Menu Bar.";
constexpr auto unseen = "Tavrin’s control can’t be seen in the menu bar right now. To come back to this "
                        "window, open Tavrin again.";

constexpr const char* hiddenAnchors[]{"claims", "refuses"};

/// A set-up Tavrin on macOS 26 that the user's switch keeps out of the menu bar from the start.
TavrinMac keptOutMac(const char* hiddenAnchor, json stored = setUp()) {
    auto options = trustedMac("notched-laptop", std::move(stored));
    options.model = {{"hiddenAnchor", hiddenAnchor}};
    TavrinMac mac(options);
    mac.set("allowedInMenuBar", {{tavrinBundle, "no"}});
    return mac;
}

json configureWindow(TavrinMac& mac) {
    for (const auto& surface : mac.surfacesOf(tavrinBundle))
        if (surface["title"] == "Configure Items") return surface;
    return nullptr;
}

void expectUsableWindow(TavrinMac& mac, const std::string& when) {
    const auto window = configureWindow(mac);
    ASSERT_FALSE(window.is_null()) << when;
    const auto screen = mac.look()["screens"][0];
    const auto& frame = window["frame"];
    EXPECT_TRUE(window["key"]) << when;
    EXPECT_GE(frame[1], screen["menuBarHeight"]) << when;
    EXPECT_GT(frame[0].get<double>() + frame[2].get<double>(), screen["frame"][2].get<double>() - 20) << when;
    EXPECT_TRUE(mac.shows("Menu Bar Items")) << when;
}

TEST(UnseenControl, openingTavrinAgainOpensAWindowThatNamesTheSwitch) {
    for (const auto* anchor : hiddenAnchors) {
        auto mac = keptOutMac(anchor);
        mac.wait(8);
        EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
        mac.start();
        mac.wait(1);
        expectUsableWindow(mac, anchor);
        EXPECT_TRUE(mac.shows(keptOut)) << anchor;
    }
}

TEST(UnseenControl, theShortcutLeadsToTheWindow) {
    for (const auto* anchor : hiddenAnchors) {
        auto mac = keptOutMac(anchor, setUp({wifi}));
        mac.wait(8);
        mac.done({{"do", "key"}, {"key", "h"}, {"modifiers", {"control", "option"}}});
        mac.wait(10);
        expectUsableWindow(mac, anchor);
        EXPECT_TRUE(mac.shows(keptOut)) << anchor;
        EXPECT_EQ(storedText(mac, "Skerrow.statusItemAutosaveVersion"), "absent") << "it keeps its place";
    }
}

TEST(UnseenControl, aControlBehindTheNotchHasAWindowToo) {
    for (const auto* anchor : hiddenAnchors) {
        auto options = trustedMac("notched-laptop", setUp());
        options.model = {{"hiddenAnchor", anchor}};
        auto mac = started(options);
        mac.set("behindNotch", {{tavrinBundle, "allItems"}});
        mac.wait(1);
        mac.start();
        mac.wait(1);
        expectUsableWindow(mac, anchor);
        EXPECT_TRUE(mac.shows(unseen)) << anchor;
    }
}

TEST(UnseenControl, aControlThatWasDraggedOffTheMenuBarHasAWindow) {
    auto mac = started(trustedMac("classic-display", setUp()));
    mac.set("removeItem", tavrinBundle);
    mac.wait(1);
    mac.start();
    mac.wait(1);
    expectUsableWindow(mac, "removed");
    EXPECT_TRUE(mac.shows(unseen));
}

TEST(UnseenControl, theWindowComesForwardAgainAndGivesTheKeyboardBack) {
    auto mac = keptOutMac("claims");
    mac.wait(8);
    mac.start();
    mac.wait(1);
    mac.done({{"do", "click"}, {"at", {300, 600}}});
    mac.start();
    mac.wait(1);
    expectUsableWindow(mac, "opened again");
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).size(), 1u);
    mac.done({{"do", "key"}, {"key", "w"}, {"modifiers", {"command"}}});
    mac.wait(1);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    EXPECT_NE(mac.look()["frontmost"], tavrinBundle);
    EXPECT_EQ(mac.stats()["tasks"], 0);
}

TEST(UnseenControl, onceAllowedTheWindowStandsAtTheControlAgain) {
    auto mac = keptOutMac("claims");
    mac.wait(8);
    mac.start();
    mac.wait(1);
    mac.press("close button");
    mac.set("allowedInMenuBar", {{tavrinBundle, "yes"}});
    mac.wait(1);
    mac.start();
    mac.wait(1);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["kind"], "popover");
    EXPECT_FALSE(mac.shows(keptOut));
}

TEST(UnseenControl, aWindowClosedByItsUserDuringAnApplyStaysClosed) {
    TavrinMac mac(controlInMidBar({wifi, sound}));
    mac.wait(2);
    mac.set("removeItem", tavrinBundle);
    mac.wait(0.5);
    mac.start();
    mac.wait(1);
    ASSERT_FALSE(configureWindow(mac).is_null());
    mac.press("Apply and Hide");
    mac.press("close button");
    mac.wait(0.5);
    EXPECT_TRUE(configureWindow(mac).is_null());
    mac.wait(60);
    EXPECT_EQ(mac.stats()["tasks"], 0);
}

TEST(UnseenControl, theHintStaysOwedUntilItCanBeSeen) {
    for (const auto* anchor : hiddenAnchors) {
        auto mac = keptOutMac(anchor, json::object());
        mac.wait(30);
        EXPECT_FALSE(mac.shows("Your menu bar items are tucked away here. Click to choose which ones show."));
        EXPECT_NE(mac.look()["frontmost"], tavrinBundle) << "nothing takes the keyboard to no purpose";
    }
}

} // namespace
} // namespace mac_model
