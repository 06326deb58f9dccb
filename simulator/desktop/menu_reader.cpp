#include "desktop/desktop_readers.h"

#include <algorithm>

namespace mac_model {
namespace {

using nlohmann::json;

constexpr std::size_t entriesMax = 5000;
constexpr int submenuDepthMax = 24;

std::vector<MenuItemSpec> readEntries(ObjectReader& owner, std::string_view key, int depth);

MenuItemSpec readSeparator(ObjectReader& entry) {
    MenuItemSpec separator;
    separator.separator = true;
    separator.enabled = false;
    entry.refuseOthers();
    return separator;
}

void readShortcut(ObjectReader& entry, MenuItemSpec& item) {
    item.key = entry.text("key");
    item.modifiers = readModifiers(entry);
    if (item.key.empty() && entry.has("modifiers")) entry.refuse("modifiers", "is given without a \"key\"");
    if (!item.key.empty() && !entry.has("modifiers")) item.modifiers = {Modifier::Command};
}

MenuItemSpec readEntry(const json& value, std::string pointer, FirstFault& faults, int depth) {
    ObjectReader entry(value, std::move(pointer), faults);
    if (entry.flag("separator", false)) return readSeparator(entry);
    MenuItemSpec item;
    item.title = entry.text("title");
    item.identifier = entry.text("identifier");
    readShortcut(entry, item);
    item.mark = entry.text("mark");
    item.enabled = entry.flag("enabled", item.enabled);
    item.role = entry.text("role", Need::Optional, item.role);
    if (!item.role.starts_with("AX")) entry.refuse("role", "must begin with \"AX\"");
    item.items = readEntries(entry, "items", depth + 1);
    entry.refuseOthers();
    return item;
}

std::vector<MenuItemSpec> readEntries(ObjectReader& owner, std::string_view key, int depth) {
    const std::vector<json>& values = owner.list(key, entriesMax);
    if (depth > submenuDepthMax && !values.empty()) {
        owner.refuse(key, "is more than " + std::to_string(submenuDepthMax) + " menus deep");
        return {};
    }
    std::vector<MenuItemSpec> entries;
    for (std::size_t i = 0; i < values.size(); ++i)
        entries.push_back(readEntry(values[i], pointerTo(owner.at(key), i), owner.faults(), depth));
    return entries;
}

} // namespace

std::vector<Modifier> readModifiers(ObjectReader& entry) {
    std::vector<Modifier> modifiers;
    const std::vector<json>& names = entry.list("modifiers", modifierNames.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string place = pointerTo(entry.at("modifiers"), i);
        const auto index =
            indexIn(modifierNames.data(), modifierNames.size(), names[i], place, entry.faults());
        const auto modifier = static_cast<Modifier>(index.value_or(0));
        if (std::find(modifiers.begin(), modifiers.end(), modifier) != modifiers.end())
            entry.faults().note(place, "is given twice");
        modifiers.push_back(modifier);
    }
    return modifiers;
}

std::vector<MenuItemSpec> readMenu(ObjectReader& owner, std::string_view key) {
    return readEntries(owner, key, 1);
}

} // namespace mac_model
