#pragma once

#include "scenarios/acts.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace mac_model {

inline constexpr const char* wifi = "com.apple.controlcenter::identifier:com.apple.menuextra.wifi";
inline constexpr const char* sound = "com.apple.controlcenter::identifier:com.apple.menuextra.sound";
inline constexpr const char* spotlight = "com.apple.Spotlight::identifier:com.apple.menuextra.spotlight";
inline constexpr const char* notes = "org.example.notes::identifier:notes-item";

/// Tavrin's control stands in mid-bar; Wi-Fi, Spotlight and Sound are on its visible side.
inline TavrinMacOptions controlInMidBar(std::vector<std::string> hidden,
                                        std::string desktop = "classic-display") {
    return trustedMac(std::move(desktop),
                      setUp(std::move(hidden), {{"NSStatusItem Preferred Position Skerrow.Main.v1", 430.5}}));
}

inline std::string nameInCrowd(int index) { return "org.example.n" + std::to_string(100 + index); }

/// Applications with an item each, all to be hidden, and Tavrin's control to the left of them.
inline TavrinMacOptions crowdOnTheVisibleSide(int count, const std::string& name = "Item ") {
    json applications = json::array();
    std::vector<std::string> hidden;
    for (int i = 0; i < count; ++i) {
        hidden.push_back(nameInCrowd(i));
        const json item{{"autosaveName", "Item-0"},
                        {"description", name + std::to_string(i)},
                        {"width", 28},
                        {"preferredPosition", 100 + 28 * i},
                        {"opens", "nothing"}};
        applications.push_back({{"bundleIdentifier", nameInCrowd(i)},
                                {"name", name + std::to_string(i)},
                                {"processIdentifier", 1000 + i},
                                {"policy", "accessory"},
                                {"statusItems", {item}}});
    }
    const json position{{"NSStatusItem Preferred Position Skerrow.Main.v1", 5000}};
    TavrinMacOptions options;
    options.desktopJson = json{{"macOS", {{"major", 26}, {"minor", 1}}},
                               {"screens", {{{"frame", {0, 0, 3840, 1600}}}}},
                               {"accessibilityTrusted", true},
                               {"applications", applications},
                               {"defaults", {{tavrinBundle, setUp(hidden, position)}}}}
                              .dump();
    return options;
}

inline void openConfigure(TavrinMac& mac) {
    mac.rightClickItem(tavrinBundle);
    mac.press("Configure Items…");
    mac.wait(1);
}

inline void apply(TavrinMac& mac) {
    openConfigure(mac);
    mac.press("Apply and Hide");
}

inline void waitForApply(TavrinMac& mac) {
    for (int i = 0; i < 2000 && (i == 0 || mac.shows("Stop")); ++i) mac.wait(0.1);
    mac.wait(0.5);
}

inline void applyAndWait(TavrinMac& mac) {
    apply(mac);
    waitForApply(mac);
}

inline bool isRightOfControl(TavrinMac& mac, const std::string& identifier) {
    const double controlX = mac.control()["frame"][0];
    for (const auto& item : mac.look()["menuBar"])
        if (item.value("identifier", "") == identifier) return item["frame"][0] > controlX;
    ADD_FAILURE() << identifier << " is not in the menu bar";
    return false;
}

inline json middleOf(const json& frame) {
    return {frame[0].get<double>() + frame[2].get<double>() / 2,
            frame[1].get<double>() + frame[3].get<double>() / 2};
}

/// The owner of the item that is being dragged; empty while none is.
inline std::string ownerOfCarriedItem(TavrinMac& mac) {
    for (const auto& item : mac.look()["menuBar"])
        if (item.value("carried", false)) return item["owner"];
    return {};
}

inline void waitForCarriedItem(TavrinMac& mac) {
    for (int i = 0; i < 500 && ownerOfCarriedItem(mac).empty(); ++i) mac.wait(0.01);
    ASSERT_NE(ownerOfCarriedItem(mac), "");
}

/// The state in which every gesture must leave the pointer, however it ended.
inline void expectPointerIsFree(TavrinMac& mac, const json& place) {
    const auto pointer = mac.look()["pointer"];
    EXPECT_EQ(pointer["buttons"], json::array());
    EXPECT_EQ(pointer["visible"], true);
    EXPECT_EQ(pointer["at"], place);
}

inline json storedHidden(TavrinMac& mac) { return mac.defaults()["Skerrow.hiddenItemIdentifiers"]; }

inline bool isStoredAsHidden(TavrinMac& mac, const std::string& identifier) {
    const auto stored = storedHidden(mac);
    return std::ranges::any_of(stored, [&](const json& one) { return one == identifier; });
}

inline bool showsPart(TavrinMac& mac, const std::string& words) {
    return mac.look()["surfaces"].dump().find(words) != std::string::npos;
}

} // namespace mac_model
