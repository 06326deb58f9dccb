#include "accessibility/accessibility_tree.h"

#include "menu_bar/titles.h"

#include <algorithm>

namespace mac_model {

using tavrin::Rect;

namespace {

ElementKey childOf(const ElementKey& parent, ElementKey::Kind kind, std::uint64_t owner) {
    return {.process = parent.process, .kind = kind, .owner = owner, .generation = 0, .path = {}};
}

ElementKey withKind(ElementKey key, ElementKey::Kind kind) {
    key.kind = kind;
    return key;
}

ElementKey inPath(ElementKey menu, ElementKey::Kind kind, std::uint32_t entry) {
    menu.kind = kind;
    menu.path.push_back(entry);
    return menu;
}

ElementKey outOfPath(ElementKey entry, ElementKey::Kind kind) {
    entry.kind = kind;
    entry.path.pop_back();
    return entry;
}

} // namespace

bool AccessibilityTree::hasItem(const ElementKey& key) const {
    const auto* record = items_.find(StatusItemIdentifier{key.owner});
    return record && record->owner == key.process && record->isVisible && record->spec.accessible;
}

bool AccessibilityTree::hasMenuBar(const ElementKey& key) const {
    return process(key).application.policy == Policy::Regular && screens_.primary();
}

bool AccessibilityTree::exists(const ElementKey& key) const {
    if (!processes_.find(key.process)) return false;
    switch (key.kind) {
    case Kind::Application:
    case Kind::ExtrasBar:
        return true;
    case Kind::MenuBar:
        return hasMenuBar(key);
    case Kind::Group:
    case Kind::StatusItem:
        return hasItem(key);
    case Kind::StatusMenu:
        return hasItem(key) && item(key).spec.opens == Opens::Menu &&
               item(key).menuGeneration == key.generation && (key.path.empty() || entry(key));
    case Kind::StatusEntry:
        return hasItem(key) && item(key).menuGeneration == key.generation && entry(key).has_value();
    case Kind::Title:
    case Kind::TitleMenu:
        return hasMenuBar(key) && key.owner < process(key).application.menuBar.size() + 2;
    case Kind::TitleEntry:
        return hasMenuBar(key) && entry(key).has_value();
    }
    return false;
}

/// The entries of the outermost menu of `key`.
std::vector<MenuItemSpec> AccessibilityTree::entriesOfMenu(const ElementKey& key) const {
    const bool isOfTitle = key.kind == Kind::TitleMenu || key.kind == Kind::TitleEntry;
    if (isOfTitle) return menuUnderTitle(process(key).application, key.owner);
    const auto& record = item(key);
    const bool isUnbuilt = uncertainties_.closedMenus == ClosedMenus::Empty && !record.isOpen;
    return isUnbuilt || record.spec.opens != Opens::Menu ? std::vector<MenuItemSpec>{} : record.spec.menu;
}

/// The entry at the key's path.
std::optional<MenuItemSpec> AccessibilityTree::entry(const ElementKey& key) const {
    const auto outermost = entriesOfMenu(key);
    const auto* entries = &outermost;
    const MenuItemSpec* found = nullptr;
    for (const auto step : key.path) {
        if (step >= entries->size()) return std::nullopt;
        found = &(*entries)[step];
        entries = &found->items;
    }
    return found ? std::optional(*found) : std::nullopt;
}

std::string AccessibilityTree::role(const ElementKey& key) const {
    switch (key.kind) {
    case Kind::Application:
        return "AXApplication";
    case Kind::MenuBar:
    case Kind::ExtrasBar:
        return "AXMenuBar";
    case Kind::Group:
        return "AXGroup";
    case Kind::StatusItem:
    case Kind::Title:
        return "AXMenuBarItem";
    case Kind::StatusMenu:
    case Kind::TitleMenu:
        return "AXMenu";
    case Kind::StatusEntry:
    case Kind::TitleEntry:
        return entry(key)->role;
    }
    return {};
}

std::optional<ElementKey> AccessibilityTree::parent(const ElementKey& key) const {
    switch (key.kind) {
    case Kind::Application:
        return std::nullopt;
    case Kind::MenuBar:
    case Kind::ExtrasBar:
        return childOf(key, Kind::Application, 0);
    case Kind::Group:
        return key.path.front() == 0
                   ? childOf(key, Kind::ExtrasBar, 0)
                   : inPath(childOf(key, Kind::Group, key.owner), Kind::Group, key.path.front() - 1);
    case Kind::StatusItem: {
        const auto depth = static_cast<std::uint32_t>(item(key).spec.nesting);
        return depth == 0 ? childOf(key, Kind::ExtrasBar, 0)
                          : inPath(childOf(key, Kind::Group, key.owner), Kind::Group, depth - 1);
    }
    case Kind::StatusMenu:
        return key.path.empty() ? childOf(key, Kind::StatusItem, key.owner)
                                : withKind(key, Kind::StatusEntry);
    case Kind::Title:
        return childOf(key, Kind::MenuBar, 0);
    case Kind::TitleMenu:
        return key.path.empty() ? childOf(key, Kind::Title, key.owner) : withKind(key, Kind::TitleEntry);
    case Kind::StatusEntry:
        return outOfPath(key, Kind::StatusMenu);
    case Kind::TitleEntry:
        return outOfPath(key, Kind::TitleMenu);
    }
    return std::nullopt;
}

AccessibilityTree::Keys AccessibilityTree::itemsInExtrasBar(tavrin::ProcessIdentifier owner) const {
    Keys items;
    for (const auto* record : items_.itemsOf(owner)) {
        const ElementKey key{.process = owner,
                             .kind = Kind::StatusItem,
                             .owner = static_cast<std::uint64_t>(record->identifier),
                             .generation = 0,
                             .path = {}};
        if (hasItem(key)) items.push_back(key);
    }
    return items;
}

std::optional<AccessibilityTree::Keys> AccessibilityTree::children(const ElementKey& key) const {
    Keys found;
    const auto addEntries = [&](Kind kind) {
        if (!menus_.areListed(key)) return;
        const auto count = key.path.empty() ? entriesOfMenu(key).size() : entry(key)->items.size();
        for (std::uint32_t n = 0; n < count; ++n) found.push_back(inPath(key, kind, n));
    };
    switch (key.kind) {
    case Kind::Application:
        if (hasMenuBar(key)) found.push_back(childOf(key, Kind::MenuBar, 0));
        if (!itemsInExtrasBar(key.process).empty()) found.push_back(childOf(key, Kind::ExtrasBar, 0));
        break;
    case Kind::MenuBar:
        for (std::uint64_t title = 0; title < process(key).application.menuBar.size() + 2; ++title)
            found.push_back(childOf(key, Kind::Title, title));
        break;
    case Kind::ExtrasBar:
        for (auto& itemKey : itemsInExtrasBar(key.process)) {
            if (item(itemKey).spec.nesting > 0)
                itemKey = inPath(withKind(itemKey, Kind::Group), Kind::Group, 0);
            found.push_back(itemKey);
        }
        break;
    case Kind::Group: {
        const auto next = key.path.front() + 1;
        const bool isInnermost = next >= static_cast<std::uint32_t>(item(key).spec.nesting);
        found.push_back(isInnermost ? childOf(key, Kind::StatusItem, key.owner)
                                    : inPath(childOf(key, Kind::Group, key.owner), Kind::Group, next));
        break;
    }
    case Kind::StatusItem:
        if (item(key).spec.opens != Opens::Menu) return std::nullopt;
        found.push_back(childOf(key, Kind::StatusMenu, key.owner));
        found.back().generation = item(key).menuGeneration;
        break;
    case Kind::Title:
        found.push_back(childOf(key, Kind::TitleMenu, key.owner));
        break;
    case Kind::StatusMenu:
        addEntries(Kind::StatusEntry);
        break;
    case Kind::TitleMenu:
        addEntries(Kind::TitleEntry);
        break;
    case Kind::StatusEntry:
        if (!entry(key)->items.empty()) found.push_back(withKind(key, Kind::StatusMenu));
        break;
    case Kind::TitleEntry:
        if (!entry(key)->items.empty()) found.push_back(withKind(key, Kind::TitleMenu));
        break;
    }
    return found;
}

/// Menus and their entries have none here: where they open is the business of who draws them.
std::optional<Rect> AccessibilityTree::frame(const ElementKey& key) const {
    const auto* screen = screens_.primary();
    if (!screen) return std::nullopt;
    switch (key.kind) {
    case Kind::MenuBar:
    case Kind::ExtrasBar:
        return Rect{screen->frame.x, screen->frame.y, screen->frame.width, screen->menuBarHeight};
    case Kind::Group:
    case Kind::StatusItem:
        if (!item(key).frame) return std::nullopt;
        return arrangement_.accessibilityFrame(item(key));
    case Kind::Title:
        return menuTitles(process(key).application, *screen)[key.owner].frame;
    default:
        return std::nullopt;
    }
}

bool AccessibilityTree::isEnabled(const ElementKey& key) const {
    if (key.kind == Kind::StatusItem) return item(key).spec.enabled;
    if (key.kind != Kind::StatusEntry && key.kind != Kind::TitleEntry) return true;
    const auto found = entry(key);
    return found->enabled && !found->separator;
}

std::vector<std::string> AccessibilityTree::actionNames(const ElementKey& key) const {
    switch (key.kind) {
    case Kind::StatusItem:
        return item(key).spec.actions;
    case Kind::Title:
    case Kind::StatusEntry:
    case Kind::TitleEntry:
        return {"AXCancel", "AXPick", "AXPress"};
    case Kind::StatusMenu:
    case Kind::TitleMenu:
        return {"AXCancel"};
    default:
        return {};
    }
}

} // namespace mac_model
