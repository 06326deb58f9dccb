#include "terminal/surface_description.h"

#include <nlohmann/json.hpp>
#include <ranges>

namespace mac_model {

namespace {

using nlohmann::json;

std::string markOf(const json& node) {
    const auto role = node.value("role", "");
    if (role == "AXCheckBox") return node.value("checked", false) ? "[x] " : "[ ] ";
    if (role == "AXMenuItem") return node.value("value", " ") + " ";
    return {};
}

/// One line for a view that a person reads or presses; nothing for one that only arranges others.
std::string lineOf(const json& node) {
    const auto role = node.value("role", "");
    if (node.contains("icon")) return {}; // its name stands beside it
    if (node.value("separator", false) || role == "AXSplitter") return "────";
    auto text = node.value("text", "");
    if (text.empty()) {
        text = node.value("symbol", "");
        if (!text.empty()) text = "(" + text + ")";
    }
    if (text.empty()) return role == "AXBusyIndicator" ? "(working)" : "";
    if (role == "AXButton") text = node.value("default", false) ? "[[" + text + "]]" : "[" + text + "]";
    text = markOf(node) + text;
    if (node.contains("key")) text += "  " + node["key"].get<std::string>();
    if (node.value("submenu", false)) text += "  ▸";
    if (node.value("focused", false)) text += "  (focused)";
    return node.value("enabled", true) ? text : text + "  (disabled)";
}

void describe(const json& node, std::string& lines) {
    if (const auto line = lineOf(node); !line.empty()) lines += "    " + line + "\n";
    if (!node.contains("children")) return;
    for (const auto& child : node["children"]) describe(child, lines);
}

std::string headingOf(const json& surface) {
    auto heading = surface.value("kind", "");
    if (const auto title = surface.value("title", ""); !title.empty()) heading += " “" + title + "”";
    heading += " of " + surface.value("owner", "");
    return surface.value("key", false) ? heading + ", key" : heading;
}

} // namespace

std::string describeSurfaces(const json& look) {
    std::string lines;
    for (const auto& surface : look["surfaces"] | std::views::reverse) {
        lines += "  " + headingOf(surface) + "\n";
        for (const auto& child : surface["children"]) describe(child, lines);
    }
    return lines;
}

} // namespace mac_model
