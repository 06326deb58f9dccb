#pragma once

#include "support/tavrin_mac.h"

#include <string>
#include <utility>
#include <vector>

namespace mac_model {

/// Words for what a person does and sees in the scenarios.

inline TavrinMacOptions trustedMac(std::string desktop, json stored = json::object()) {
    TavrinMacOptions options;
    options.desktop = std::move(desktop);
    options.changes = {{"accessibilityTrusted", true}, {"defaults", {{tavrinBundle, std::move(stored)}}}};
    return options;
}

/// The preferences of a user who has set Tavrin up.
inline json setUp(std::vector<std::string> hidden = {}, json more = json::object()) {
    json stored{{"Skerrow.didPresentInitialConfiguration", true},
                {"Skerrow.hiddenItemIdentifiers", std::move(hidden)}};
    stored.update(more);
    return stored;
}

/// A Mac on which Tavrin has had this long: two seconds are enough to find its places and to scan, three or
/// four to hide as well and to show the hint.
inline TavrinMac started(TavrinMacOptions options, double seconds = 2) {
    TavrinMac mac(std::move(options));
    mac.wait(seconds);
    return mac;
}

inline bool isCollapsed(TavrinMac& mac) { return mac.control().value("symbol", "") == "chevron.right.2"; }

inline void clickControl(TavrinMac& mac) { mac.clickItem(tavrinBundle); }

inline void clickControlAndWait(TavrinMac& mac) {
    clickControl(mac);
    mac.wait(1);
}

/// The spacer as it stands in the menu bar; null without one.
inline json spacer(TavrinMac& mac) {
    for (auto& item : mac.itemsOf(tavrinBundle))
        if (!item.contains("symbol")) return item;
    return nullptr;
}

inline double spacerLength(TavrinMac& mac) { return spacer(mac)["frame"][2].get<double>(); }

/// Names and frames of the items of all others, from left to right.
inline json othersItems(TavrinMac& mac) {
    json items = json::array();
    for (const auto& item : mac.look()["menuBar"])
        if (item["owner"] != tavrinBundle) items.push_back({item["name"], item["frame"], item["drawn"]});
    return items;
}

/// Closes the hint of the first run and the window that opens for it.
inline void answerHint(TavrinMac& mac) {
    clickControlAndWait(mac);
    mac.key("escape");
    mac.wait(1);
}

inline std::string storedText(TavrinMac& mac, const std::string& key) {
    const auto stored = mac.defaults();
    return stored.contains(key) ? stored[key].dump() : "absent";
}

} // namespace mac_model
