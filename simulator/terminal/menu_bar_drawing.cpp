#include "terminal/menu_bar_drawing.h"

#include "base/unicode.h"
#include "views/code_points.h"

#include <algorithm>
#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mac_model {

namespace {

using nlohmann::json;

constexpr std::size_t nameColumnsMax = 14;
constexpr std::size_t nameColumnsMin = 3;
constexpr std::string_view notchDrawing = " ▓▓▓ ";

// Symbols that read better as themselves than by the item's name.
const std::map<std::string_view, std::string_view> symbolDrawings{{"chevron.left.2", "‹‹"},
                                                                  {"chevron.right.2", "››"}};

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> hiddenPhrases{
    {{"offscreen", "off screen"},
     {"notch", "behind the notch"},
     {"dropped", "dropped"},
     {"overflow", "behind «"},
     {"restricted", "not allowed"},
     {"barNotVisible", "not visible"}}};

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    for (const auto character : tavrin::charactersOf(text))
        columns += isZeroWidth(character.value) ? 0 : isWide(character.value) ? 2 : 1;
    return columns;
}

std::string cutTo(std::size_t columns, std::string_view text) {
    std::string cut;
    for (const auto character : tavrin::charactersOf(text)) {
        if (columnsOf(cut + std::string(character.bytes)) > columns) break;
        cut += character.bytes;
    }
    return cut;
}

std::string trimmed(std::string text) {
    while (text.ends_with(' ')) text.pop_back();
    return text;
}

/// An item's name as far as it tells the item from others: "Battery" of "Battery, 80 percent".
std::string shortName(const json& item, std::size_t columns) {
    const auto drawing = symbolDrawings.find(item.value("symbol", ""));
    if (drawing != symbolDrawings.end()) return std::string(drawing->second);
    const auto name = item.value("name", "");
    return trimmed(cutTo(columns, std::string_view(name).substr(0, name.find(','))));
}

struct Notch {
    double minX;
    double maxX;
};

std::optional<Notch> notchOf(const json& look) {
    if (look["screens"].empty() || !look["screens"][0].contains("leftMenuBarArea")) return std::nullopt;
    const auto& left = look["screens"][0]["leftMenuBarArea"];
    const auto& right = look["screens"][0]["rightMenuBarArea"];
    return Notch{left[0].get<double>() + left[2].get<double>(), right[0].get<double>()};
}

/// Parts of the line. An item that begins left of the screen shows nothing of its face, so it has no name
/// here.
struct Parts {
    std::vector<json> titles;
    std::vector<json> leftItems; // left of the notch
    std::vector<json> rightItems;
    bool hasNotch = false;
};

Parts partsOf(const json& look) {
    Parts parts;
    const auto notch = notchOf(look);
    parts.hasNotch = notch.has_value();
    for (const auto& title : look["menus"]) parts.titles.push_back(title);
    const bool hasOverflow = !look["screens"].empty() && look["screens"][0].contains("overflow");
    if (hasOverflow) parts.rightItems.push_back({{"name", "«"}});
    for (const auto& item : look["menuBar"]) {
        const auto x = item["frame"][0].get<double>();
        if (!item.value("drawn", false) || x < 0) continue;
        (notch && x < notch->minX ? parts.leftItems : parts.rightItems).push_back(item);
    }
    return parts;
}

std::string itemsText(const std::vector<json>& items, std::size_t nameColumns) {
    std::string text;
    for (const auto& item : items) text += (text.empty() ? "" : "·") + shortName(item, nameColumns);
    return text;
}

std::string titlesText(const Parts& parts) {
    std::string text;
    for (const auto& title : parts.titles) {
        const auto name = title.value("title", "");
        text += (text.empty() ? "" : " ") + (name == "Apple" ? std::string("◆") : name);
    }
    return text;
}

std::string lineOf(const Parts& parts, std::size_t nameColumns, std::size_t columns) {
    const std::string left = titlesText(parts);
    std::string right = itemsText(parts.leftItems, nameColumns);
    if (parts.hasNotch) right += notchDrawing;
    right += itemsText(parts.rightItems, nameColumns);
    const auto used = columnsOf(left) + columnsOf(right);
    return left + std::string(used + 1 < columns ? columns - used : 1, ' ') + right;
}

std::string hiddenText(const json& look) {
    std::string text;
    for (const auto& hidden : hiddenPhrases) {
        const std::string why(hidden.first);
        const auto count = std::ranges::count_if(
            look["menuBar"], [&why](const json& item) { return item.value("why", "") == why; });
        if (count > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + std::string(hidden.second);
    }
    return text.empty() ? "all items are drawn" : text;
}

bool isSeen(const json& world) {
    return !world.value("menuBarHidden", false) && !world.value("screenLocked", false) &&
           !world.value("displayAsleep", false);
}

} // namespace

std::string drawMenuBar(const json& look, std::size_t columns) {
    if (!isSeen(look["world"])) return "(the menu bar isn't visible)\n    " + hiddenText(look) + "\n";
    const auto parts = partsOf(look);
    std::string line;
    for (std::size_t nameColumns = nameColumnsMax; nameColumns >= nameColumnsMin; --nameColumns) {
        line = lineOf(parts, nameColumns, columns);
        if (columnsOf(line) <= columns) break;
    }
    return line + "\n    " + hiddenText(look) + "\n";
}

} // namespace mac_model
