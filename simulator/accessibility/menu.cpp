#include "accessibility/menu.h"

#include "menu_bar/titles.h"

#include <algorithm>

namespace mac_model {

using Kind = ElementKey::Kind;

namespace {

/// Bits of AXMenuItemCmdModifiers: Shift 1, Option 2, Control 4, and 8 for a key equivalent without Command.
double commandModifiers(const std::vector<Modifier>& modifiers) {
    const auto bit = [&](Modifier modifier, int value) {
        return std::ranges::find(modifiers, modifier) != modifiers.end() ? value : 0;
    };
    const int withoutCommand = bit(Modifier::Command, 8) ^ 8;
    return bit(Modifier::Shift, 1) | bit(Modifier::Option, 2) | bit(Modifier::Control, 4) | withoutCommand;
}

bool isUnderTitle(const ElementKey& key) {
    return key.kind == Kind::TitleMenu || key.kind == Kind::TitleEntry;
}

bool isMenu(const ElementKey& key) { return key.kind == Kind::TitleMenu || key.kind == Kind::StatusMenu; }

Kind menuKind(const ElementKey& key) { return isUnderTitle(key) ? Kind::TitleMenu : Kind::StatusMenu; }

Kind entryKind(const ElementKey& key) { return isUnderTitle(key) ? Kind::TitleEntry : Kind::StatusEntry; }

/// The title or status item that the outermost menu hangs from.
ElementKey rootOf(const ElementKey& key) {
    return childOf(key, isUnderTitle(key) ? Kind::Title : Kind::StatusItem, key.owner);
}

} // namespace

bool MenuBranch::exists(const ElementKey& key) const {
    if (!isUnderTitle(key)) return existsUnderItem(key);
    return application_.exists(rootOf(key)) && (isMenu(key) || entry(key));
}

bool MenuBranch::existsUnderItem(const ElementKey& key) const {
    if (!extras_.exists(rootOf(key)) || item(key).menuGeneration != key.generation) return false;
    if (!isMenu(key)) return entry(key).has_value();
    return item(key).spec.opens == Opens::Menu && (key.path.empty() || entry(key));
}

/// The entries of the outermost menu of `key`: the item's own, which may be hundreds, or `made` for the menu
/// of a title.
const std::vector<MenuItemSpec>& MenuBranch::entriesOfMenu(const ElementKey& key,
                                                           std::vector<MenuItemSpec>& made) const {
    if (isUnderTitle(key)) return made = menuUnderTitle(processes_.find(key.process)->application, key.owner);
    const auto& record = item(key);
    const bool isUnbuilt = uncertainties_.closedMenus == ClosedMenus::Empty && !record.isOpen;
    return isUnbuilt || record.spec.opens != Opens::Menu ? made : record.spec.menu;
}

/// The entry at the key's path.
std::optional<MenuItemSpec> MenuBranch::entry(const ElementKey& key) const {
    std::vector<MenuItemSpec> made;
    const auto* entries = &entriesOfMenu(key, made);
    const MenuItemSpec* found = nullptr;
    for (const auto step : key.path) {
        if (step >= entries->size()) return std::nullopt;
        found = &(*entries)[step];
        entries = &found->items;
    }
    return found ? std::optional(*found) : std::nullopt;
}

std::string MenuBranch::role(const ElementKey& key) const {
    return isMenu(key) ? "AXMenu" : entry(key)->role;
}

std::optional<ElementKey> MenuBranch::parent(const ElementKey& key) const {
    if (!isMenu(key)) return outOfPath(key, menuKind(key));
    return key.path.empty() ? rootOf(key) : withKind(key, entryKind(key));
}

std::optional<Branch::Keys> MenuBranch::children(const ElementKey& key) const {
    if (isMenu(key)) return entriesIn(key);
    return entry(key)->items.empty() ? Keys{} : Keys{withKind(key, menuKind(key))};
}

Branch::Keys MenuBranch::entriesIn(const ElementKey& menu) const {
    Keys found;
    if (!menus_.areListed(menu)) return found;
    std::vector<MenuItemSpec> made;
    const auto count = menu.path.empty() ? entriesOfMenu(menu, made).size() : entry(menu)->items.size();
    for (std::uint32_t n = 0; n < count; ++n) found.push_back(inPath(menu, entryKind(menu), n));
    return found;
}

AttributeResult MenuBranch::attribute(const ElementKey& key, std::string_view name) const {
    if (isMenu(key)) return unsupported();
    const auto found = *entry(key);
    if (name == "AXTitle") return found.title;
    if (name == "AXSelected") return false;
    if (name == "AXMenuItemCmdChar") return textOrNone(found.key);
    if (name == "AXMenuItemMarkChar") return textOrNone(found.mark);
    if (name == "AXMenuItemCmdModifiers")
        return found.key.empty() ? noValue() : commandModifiers(found.modifiers);
    if (name == "AXIdentifier" && !found.identifier.empty()) return found.identifier;
    return unsupported();
}

bool MenuBranch::isEnabled(const ElementKey& key) const {
    if (isMenu(key)) return true;
    const auto found = entry(key);
    return found->enabled && !found->separator && !isDisabledBehind(key);
}

bool MenuBranch::isDisabledBehind(const ElementKey& key) const {
    const auto* front = processes_.frontmost();
    const bool isInFront = front && front->identifier == key.process;
    return isUnderTitle(key) && !isInFront && menus_.faultsOf(key.process).isDisabledBehind;
}

std::vector<std::string> MenuBranch::actionNames(const ElementKey& key) const {
    if (isMenu(key)) return {"AXCancel"};
    return {"AXCancel", "AXPick", "AXPress"};
}

} // namespace mac_model
