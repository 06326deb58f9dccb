#pragma once

#include "base/base64.h"
#include "scenarios/acts.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace mac_model {

/// Words for scenarios with pinned actions.

using Strings = std::vector<std::string>;

inline const std::string notesBundle = "org.example.notes";
inline const std::string editorBundle = "org.example.editor";

inline json entry(const std::string& title, json more = json::object()) {
    json item{{"title", title}};
    item.update(more);
    return item;
}

inline json statusItem(json menu, json more = json::object()) {
    json item{{"identifier", "notes-item"}, {"description", "Notes"}, {"width", 28},
              {"preferredPosition", 210},   {"opens", "menu"},        {"menu", std::move(menu)}};
    item.update(more);
    return item;
}

inline json application(const std::string& bundle, const std::string& name, const std::string& policy,
                        json more = json::object()) {
    static int process = 500;
    json spec{
        {"bundleIdentifier", bundle}, {"name", name}, {"processIdentifier", ++process}, {"policy", policy}};
    spec.update(more);
    return spec;
}

inline json notesMenu() {
    return {entry("Sync Now", {{"identifier", "sync"}}),
            {{"separator", true}},
            entry("Dark Mode", {{"mark", "✓"}}),
            entry("Later", {{"enabled", false}}),
            entry("Twin"),
            entry("twin…"),
            entry("Accounts",
                  {{"items", {entry("Work", {{"items", json::array({entry("Fetch")})}}), entry("Home")}}}),
            entry("Quit Notes")};
}

inline json editorBar() {
    return {entry("File", {{"items",
                            {entry("New", {{"key", "n"}}),
                             entry("Export", {{"items", {entry("As PDF…"), entry("As Text…")}}})}}}),
            entry("Edit", {{"items", json::array({entry("Undo")})}})};
}

inline json notesApplication(json item = statusItem(notesMenu())) {
    return application(notesBundle, "Notes", "accessory", {{"statusItems", json::array({std::move(item)})}});
}

/// A stored pin; `more` is laid over it.
inline json pin(const std::string& name, const std::vector<std::string>& path, json more = json::object()) {
    static int number = 0;
    const auto digits = std::to_string(1'000'000 + ++number).substr(1);
    json steps = json::array();
    for (const auto& title : path) steps.push_back({{"title", title}});
    json stored{{"id", "00000000-0000-4000-8000-000000" + digits},
                {"name", name},
                {"bundleIdentifier", notesBundle},
                {"applicationName", "Notes"},
                {"statusItem", {{"identifier", "notes-item"}, {"label", "Notes"}, {"index", 0}}},
                {"path", steps},
                {"hasConfirmedFirstRun", true}};
    stored.update(more);
    return stored;
}

inline json barPin(const std::string& name, const std::vector<std::string>& path) {
    return pin(
        name, path,
        {{"bundleIdentifier", editorBundle}, {"applicationName", "Editor"}, {"menuOrigin", "appMenuBar"}});
}

/// A set-up Mac with these pins on it. Finder is in front, and the editor behind it.
inline TavrinMacOptions macWithPins(const std::vector<json>& pins,
                                    const std::vector<json>& applications = {notesApplication()}) {
    const auto document = json{{"version", 1}, {"pins", pins}}.dump();
    const auto bytes = std::as_bytes(std::span(document));
    json stored = setUp({}, {{"Tavrin.pinnedActions", {{"$data", tavrin::base64From(bytes)}}}});
    json all{application("com.apple.finder", "Finder", "regular"),
             application(editorBundle, "Editor", "regular", {{"menuBar", editorBar()}})};
    for (const auto& one : applications) all.push_back(one);
    TavrinMacOptions options;
    options.desktopJson = json{{"macOS", {{"major", 26}}},
                               {"screens", json::array({{{"frame", {0, 0, 1512, 982}}}})},
                               {"accessibilityTrusted", true},
                               {"applications", std::move(all)},
                               {"defaults", {{tavrinBundle, std::move(stored)}}}}
                              .dump();
    return options;
}

/// The stored pin of that name.
inline json storedPin(TavrinMac& mac, const std::string& name) {
    const auto data = mac.defaults()["Tavrin.pinnedActions"]["$data"].get<std::string>();
    const auto bytes = tavrin::bytesFromBase64(data).value();
    const auto document = json::parse(reinterpret_cast<const char*>(bytes.data()),
                                      reinterpret_cast<const char*>(bytes.data()) + bytes.size());
    for (const auto& stored : document["pins"])
        if (stored["name"] == name) return stored;
    return nullptr;
}

inline std::string lastFailure(TavrinMac& mac, const std::string& name) {
    return storedPin(mac, name).value("lastFailure", "none");
}

/// Asks for the pin in the control's menu.
inline void request(TavrinMac& mac, const std::string& name) {
    mac.rightClickItem(tavrinBundle);
    mac.press(name);
}

inline void runPin(TavrinMac& mac, const std::string& name) {
    request(mac, name);
    mac.wait(6);
}

/// Menu entries of others that ran, of a reply to "events", as "owner: A > B".
inline std::vector<std::string> chosenIn(const json& reply) {
    std::vector<std::string> entries;
    for (const auto& one : reply["chosen"]) {
        auto text = one["owner"].get<std::string>() + ":";
        for (const auto& title : one["path"]) text += " > " + title.get<std::string>();
        entries.push_back(text);
    }
    return entries;
}

/// Those since the last call.
inline std::vector<std::string> chosen(TavrinMac& mac) { return chosenIn(mac.events()); }

inline std::ptrdiff_t countOf(const json& reply, const std::string& type) {
    return std::ranges::count_if(reply["events"], [&](const auto& event) { return event["type"] == type; });
}

inline const std::string synced = notesBundle + ": > Sync Now";

/// How many menus are on the screen.
inline std::ptrdiff_t openMenus(TavrinMac& mac) {
    const auto look = mac.look();
    return std::ranges::count_if(look["surfaces"],
                                 [](const auto& surface) { return surface["kind"] == "menu"; });
}

} // namespace mac_model
