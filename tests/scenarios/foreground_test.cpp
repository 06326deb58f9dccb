#include "scenarios/acts.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

constexpr auto editor = "org.example.editor";

/// The application in front has a menu with a key of its own.
TavrinMacOptions besideAnEditor(std::map<std::string, std::string> model = {}) {
    auto options = trustedMac("classic-display", setUp());
    options.model = std::move(model);
    return options;
}

TavrinMac startedBesideAnEditor(std::map<std::string, std::string> model = {}) {
    auto mac = started(besideAnEditor(std::move(model)));
    const json save{{"title", "Save"}, {"key", "s"}};
    mac.set("launch", {{"bundleIdentifier", editor},
                       {"name", "Editor"},
                       {"policy", "regular"},
                       {"menuBar", {{{"title", "File"}, {"items", {save}}}}}});
    mac.wait(0.5);
    return mac;
}

bool save(TavrinMac& mac) {
    (void)mac.events();
    (void)mac.command({{"do", "key"}, {"key", "s"}, {"modifiers", {"command"}}});
    return mac.events().dump().find("Save") != std::string::npos;
}

void closeKeyWindow(TavrinMac& mac) { mac.done({{"do", "key"}, {"key", "w"}, {"modifiers", {"command"}}}); }

void openSettings(TavrinMac& mac) {
    mac.rightClickItem(tavrinBundle);
    mac.press("Settings…");
}

bool isKey(TavrinMac& mac, const std::string& bundle) {
    const auto surfaces = mac.surfacesOf(bundle);
    return !surfaces.empty() && surfaces.back()["key"] == true;
}

TEST(Foreground, aWindowGetsTheKeysHoweverMacOSAnswersTheRequest) {
    for (const char* answer : {"granted", "late", "declined"}) {
        auto mac = startedBesideAnEditor({{"activation", answer}});
        openSettings(mac);
        mac.wait(0.2);
        EXPECT_TRUE(isKey(mac, tavrinBundle)) << answer;
        EXPECT_FALSE(save(mac)) << answer;
    }
}

TEST(Foreground, theKeysGoBackToWhoHadThemWhenTheLastWindowCloses) {
    for (const char* answer : {"granted", "late", "declined"}) {
        auto mac = startedBesideAnEditor({{"activation", answer}});
        EXPECT_TRUE(save(mac));
        openSettings(mac);
        mac.wait(1);
        mac.press("close button");
        mac.wait(0.5);
        EXPECT_TRUE(save(mac)) << answer;
    }
}

TEST(Foreground, aWindowClosedBeforeTheRequestIsGrantedLeavesNobodyWithoutKeys) {
    for (const double closedAfter : {0.01, 0.05, 0.11, 0.2}) {
        auto mac = startedBesideAnEditor({{"activation", "late"}});
        openSettings(mac);
        mac.wait(closedAfter);
        mac.press("close button");
        mac.wait(1.5);
        EXPECT_TRUE(save(mac)) << closedAfter;
        EXPECT_EQ(mac.stats()["tasks"], 0);
    }
}

TEST(Foreground, theConfigureWindowIsUsedHoweverMacOSAnswersTheRequest) {
    for (const char* answer : {"granted", "late", "declined"}) {
        auto mac = startedBesideAnEditor({{"activation", answer}});
        mac.set("activationTime", 0.3);
        mac.rightClickItem(tavrinBundle);
        mac.press("Configure Items…");
        mac.wait(0.8);
        EXPECT_TRUE(isKey(mac, tavrinBundle)) << answer;
        mac.key("tab");
        EXPECT_NE(mac.look().dump().find("\"focused\":true"), std::string::npos) << answer;
        mac.wait(1);
        EXPECT_FALSE(save(mac)) << answer;
        mac.key("escape");
        mac.wait(1.5);
        EXPECT_FALSE(mac.shows("Apply and Hide")) << answer;
        EXPECT_TRUE(save(mac)) << answer << ": the keys are back";
        EXPECT_EQ(mac.stats()["tasks"], 0) << answer;
    }
}

TEST(Foreground, theMenuOfTheControlStaysOpenHoweverLateARequestIsGranted) {
    for (const char* answer : {"granted", "late", "declined"}) {
        for (const double pause : {0.01, 0.12, 0.25}) {
            auto mac = startedBesideAnEditor({{"activation", answer}});
            mac.set("activationTime", 0.3);
            openSettings(mac);
            mac.wait(pause);
            mac.rightClickItem(tavrinBundle);
            mac.wait(2);
            EXPECT_TRUE(mac.shows("Configure Items…")) << answer << ", " << pause;
            mac.press("Configure Items…");
            mac.wait(2);
            EXPECT_TRUE(mac.shows("Apply and Hide")) << answer << ", " << pause;
        }
    }
}

TEST(Foreground, theKeysStayWhereTheUserHasPutThem) {
    auto mac = startedBesideAnEditor();
    openSettings(mac);
    mac.wait(1);
    mac.rightClickItem(tavrinBundle);
    mac.press("About Tavrin");
    mac.wait(0.5);
    closeKeyWindow(mac);
    mac.wait(1);
    EXPECT_TRUE(isKey(mac, tavrinBundle)) << "another window of Tavrin is open";
    closeKeyWindow(mac);
    mac.wait(0.1);
    mac.rightClickItem(tavrinBundle);
    mac.wait(2);
    EXPECT_TRUE(mac.shows("Configure Items…")) << "its menu stays open";
    mac.key("escape");
    mac.wait(0.5);
    EXPECT_TRUE(save(mac));
}

TEST(Foreground, systemSettingsHasASwitchOnlyForWhoHasAsked) {
    TavrinMacOptions options;
    options.desktop = "notched-laptop";
    TavrinMac mac(options);
    mac.wait(1);
    mac.press("Open System Settings");
    EXPECT_EQ(mac.defaults().size(), 0u);
    mac.wait(1);
    EXPECT_TRUE(mac.shows("“Tavrin” would like to control this computer using accessibility features."));
    mac.press("Deny");
    mac.press("Tavrin");
    mac.wait(5);
    EXPECT_FALSE(mac.control().is_null());
}

} // namespace
} // namespace mac_model
