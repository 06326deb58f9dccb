#include "screen/menu_layout.h"

#include "views/text_metrics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mac_model {

namespace {

constexpr double inset = 5; // above the first and below the last entry
constexpr double rowHeight = 22;
constexpr double separatorHeight = 11;
constexpr double markWidth = 22;
constexpr double pictureWidth = 22; // with the room beside it
constexpr double trailingWidth = 14;
constexpr double columnGap = 24;
constexpr double widthMin = 120;

double heightOf(const MenuItemSpec& item) { return item.separator ? separatorHeight : rowHeight; }

double trailingTextWidth(const MenuItemSpec& item) {
    if (!item.items.empty()) return columnGap;
    const auto text = keyEquivalentText(item);
    return text.empty() ? 0 : columnGap + widthOf(text, TextStyle::Body);
}

bool hasSameModifiers(std::vector<Modifier> left, std::vector<Modifier> right) {
    std::ranges::sort(left);
    std::ranges::sort(right);
    return left == right;
}

std::string inUpperCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    return text;
}

} // namespace

Size menuSize(const std::vector<MenuItemSpec>& items) {
    double widest = 0;
    double height = 2 * inset;
    for (const auto& item : items) {
        const double picture = item.picture.empty() ? 0 : pictureWidth;
        widest = std::max(widest, picture + widthOf(item.title, TextStyle::Body) + trailingTextWidth(item));
        height += heightOf(item);
    }
    return {std::max(widthMin, std::ceil(markWidth + widest + trailingWidth)), height};
}

std::vector<MenuRow> menuRows(std::vector<MenuItemSpec> items, Rect frame) {
    std::vector<MenuRow> rows;
    double y = frame.y + inset;
    for (auto& item : items) {
        const double height = heightOf(item);
        rows.push_back({std::move(item), {frame.x, y, frame.width, height}});
        y += height;
    }
    return rows;
}

std::string keyEquivalentText(const MenuItemSpec& item) {
    if (item.key.empty()) return {};
    std::string text;
    for (const auto& [modifier, sign] : {std::pair{Modifier::Control, "⌃"}, std::pair{Modifier::Option, "⌥"},
                                         std::pair{Modifier::Shift, "⇧"}, std::pair{Modifier::Command, "⌘"}})
        if (std::ranges::find(item.modifiers, modifier) != item.modifiers.end()) text += sign;
    return text + inUpperCase(item.key);
}

bool isChoosable(const MenuItemSpec& item) { return item.enabled && !item.separator && item.items.empty(); }

std::optional<std::vector<std::size_t>> pathOfKeyEquivalent(const std::vector<MenuItemSpec>& items,
                                                            std::string_view key,
                                                            const std::vector<Modifier>& modifiers) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& item = items[i];
        if (isChoosable(item) && item.key == key && hasSameModifiers(item.modifiers, modifiers))
            return std::vector{i};
        if (!item.enabled) continue;
        if (auto below = pathOfKeyEquivalent(item.items, key, modifiers)) {
            below->insert(below->begin(), i);
            return below;
        }
    }
    return std::nullopt;
}

const MenuItemSpec* entryAt(const std::vector<MenuItemSpec>& items, const std::vector<std::size_t>& path) {
    const auto* level = &items;
    const MenuItemSpec* entry = nullptr;
    for (const auto index : path) {
        if (index >= level->size()) return nullptr;
        entry = &(*level)[index];
        level = &entry->items;
    }
    return entry;
}

std::vector<std::string> titlesAlong(const std::vector<MenuItemSpec>& items,
                                     const std::vector<std::size_t>& path) {
    std::vector<std::string> titles;
    for (std::size_t length = 1; length <= path.size(); ++length) {
        const std::vector<std::size_t> part(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(length));
        if (const auto* entry = entryAt(items, part)) titles.push_back(entry->title);
    }
    return titles;
}

} // namespace mac_model
