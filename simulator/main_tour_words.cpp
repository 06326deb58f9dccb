#include "main_tour_words.h"

#include <algorithm>

namespace mac_model::tour {

namespace {

bool hasText(const json& node, std::string_view text) {
    if (node.value("text", "") == text) return true;
    return node.contains("children") &&
           std::ranges::any_of(node["children"], [&](const json& child) { return hasText(child, text); });
}

bool hasWindow(const Seen& seen, std::string_view title) {
    return std::ranges::any_of(seen.look["surfaces"],
                               [&](const json& surface) { return surface.value("title", "") == title; });
}

/// The name of the symbol on the program's control; empty while it has no item that is drawn.
std::string controlSymbol(const Seen& seen, const std::string& bundle) {
    for (const auto& item : seen.look["menuBar"])
        if (item["owner"] == bundle && item.value("drawn", false) && item.contains("symbol"))
            return item["symbol"];
    return {};
}

bool isStored(const Seen& seen, const std::string& key, const json& value) {
    return seen.defaults.contains(key) && seen.defaults[key] == value;
}

} // namespace

bool shows(const Seen& seen, std::string_view text) {
    return std::ranges::any_of(seen.look["surfaces"],
                               [&](const json& surface) { return hasText(surface, text); });
}

std::ptrdiff_t countHidden(const Seen& seen) {
    return std::ranges::count_if(seen.look["menuBar"], [](const json& item) {
        const auto why = item.value("why", "");
        return why == "offscreen" || why == "restricted";
    });
}

Expectation text(const std::string& words) {
    return {"“" + words + "”", [words](const Seen& seen) { return shows(seen, words); }};
}

Expectation collapsed(const std::string& bundle) {
    return {"items are hidden, and the control points right", [bundle](const Seen& seen) {
                return countHidden(seen) > 0 && controlSymbol(seen, bundle) == "chevron.right.2";
            }};
}

Expectation expanded(const std::string& bundle) {
    return {"no item is hidden, and the control points left", [bundle](const Seen& seen) {
                return countHidden(seen) == 0 && controlSymbol(seen, bundle) == "chevron.left.2";
            }};
}

Expectation noControl(const std::string& bundle) {
    return {"Tavrin has no item in the menu bar", [bundle](const Seen& seen) {
                return std::ranges::none_of(seen.look["menuBar"],
                                            [&](const json& item) { return item["owner"] == bundle; });
            }};
}

Expectation stored(const std::string& key, const json& value) {
    return {key + " is " + value.dump(),
            [key, value](const Seen& seen) { return isStored(seen, key, value); }};
}

Expectation window(std::string_view title) {
    return {"the window “" + std::string(title) + "”",
            [title](const Seen& seen) { return hasWindow(seen, title); }};
}

Expectation noWindow(std::string_view title) {
    return {"the window “" + std::string(title) + "” is gone",
            [title](const Seen& seen) { return !hasWindow(seen, title); }};
}

bool behaves(const Seen& seen, const std::string& setting, const json& value) {
    return seen.look["world"]["model"].value(setting, json{}) == value;
}

Expectation inFront(const std::string& bundle) {
    return {"macOS declined Tavrin’s plain request to be in front, and Tavrin is there all the same",
            [bundle](const Seen& seen) {
                return behaves(seen, "activation", "declined") && seen.look["frontmost"] == bundle;
            }};
}

Expectation notInFront(const std::string& bundle) {
    return {"another application is in front and has the keyboard",
            [bundle](const Seen& seen) { return seen.look["frontmost"] != bundle; }};
}

Expectation notPlacedYet() {
    return {"macOS hasn’t given the control its place, so that nothing is hidden",
            [](const Seen& seen) { return behaves(seen, "placement", "slow") && countHidden(seen) == 0; }};
}

json press(const std::string& words) { return {{"do", "press"}, {"text", words}}; }

json wait(double seconds) { return {{"do", "wait"}, {"seconds", seconds}}; }

json click(const std::string& bundle, const std::string& button) {
    return {{"do", "click"}, {"item", bundle}, {"button", button}};
}

json key(const std::string& name, const json& modifiers) {
    return {{"do", "key"}, {"key", name}, {"modifiers", modifiers}};
}

} // namespace mac_model::tour
