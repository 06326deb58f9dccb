#include "accessibility/extras.h"

namespace mac_model {

using Kind = ElementKey::Kind;

bool ExtrasBranch::exists(const ElementKey& key) const {
    if (key.kind == Kind::ExtrasBar) return true;
    const auto* record = items_.find(StatusItemIdentifier{key.owner});
    return record && record->owner == key.process && record->isVisible && record->spec.accessible;
}

std::string ExtrasBranch::role(const ElementKey& key) const {
    if (key.kind == Kind::ExtrasBar) return "AXMenuBar";
    return key.kind == Kind::Group ? "AXGroup" : "AXMenuBarItem";
}

Branch::Keys ExtrasBranch::itemsOf(ProcessIdentifier owner) const {
    Keys found;
    ElementKey process;
    process.process = owner;
    for (const auto* record : items_.itemsOf(owner)) {
        auto key = childOf(process, Kind::StatusItem, static_cast<std::uint64_t>(record->identifier));
        if (exists(key)) found.push_back(std::move(key));
    }
    return found;
}

ElementKey ExtrasBranch::onTheWay(const ElementKey& key, std::uint32_t depth) const {
    const bool isItem = depth >= static_cast<std::uint32_t>(item(key).spec.nesting);
    if (isItem) return childOf(key, Kind::StatusItem, key.owner);
    return inPath(childOf(key, Kind::Group, key.owner), Kind::Group, depth);
}

std::optional<ElementKey> ExtrasBranch::parent(const ElementKey& key) const {
    if (key.kind == Kind::ExtrasBar) return childOf(key, Kind::Application, 0);
    const auto depth =
        key.kind == Kind::Group ? key.path.front() : static_cast<std::uint32_t>(item(key).spec.nesting);
    return depth == 0 ? childOf(key, Kind::ExtrasBar, 0) : onTheWay(key, depth - 1);
}

std::optional<Branch::Keys> ExtrasBranch::children(const ElementKey& key) const {
    if (key.kind == Kind::Group) return Keys{onTheWay(key, key.path.front() + 1)};
    if (key.kind == Kind::StatusItem)
        return item(key).spec.opens == Opens::Menu ? std::optional(menuOf(key)) : std::nullopt;
    Keys found;
    for (const auto& itemKey : itemsOf(key.process)) found.push_back(onTheWay(itemKey, 0));
    return found;
}

Branch::Keys ExtrasBranch::menuOf(const ElementKey& key) const {
    auto menu = childOf(key, Kind::StatusMenu, key.owner);
    menu.generation = item(key).menuGeneration;
    return {menu};
}

std::optional<Rect> ExtrasBranch::frame(const ElementKey& key) const {
    const auto* screen = screens_.active();
    if (!screen) return std::nullopt;
    if (key.kind == Kind::ExtrasBar)
        return Rect{screen->frame.x, screen->frame.y, screen->frame.width, screen->menuBarHeight};
    if (!item(key).frame) return std::nullopt;
    return arrangement_.accessibilityFrame(item(key));
}

AttributeResult ExtrasBranch::attribute(const ElementKey& key, std::string_view name) const {
    if (key.kind == Kind::StatusItem) return ofItem(key, name);
    const bool isFocus = key.kind == Kind::ExtrasBar && name == "AXFocused";
    return isFocus ? AttributeResult(false) : unsupported();
}

AttributeResult ExtrasBranch::ofItem(const ElementKey& key, std::string_view name) const {
    const auto& record = item(key);
    if (name == "AXSubrole") return std::string("AXMenuExtra");
    if (name == "AXRoleDescription") return std::string("status menu");
    if (name == "AXTitle") return record.spec.title;
    if (name == "AXDescription") return textOrNone(record.spec.description);
    if (name == "AXValue" && !record.spokenValue.empty()) return record.spokenValue;
    if (name == "AXHelp") return textOrNone(record.spec.help);
    if (name == "AXSelected") return record.isOpen;
    if (name == "AXShownMenuUIElement") return menus_.shownMenu(key, menuOf(key).front());
    if (name == "AXIdentifier" && !record.spec.identifier.empty()) return record.spec.identifier;
    return name == "AXWindow" || name == "AXTopLevelUIElement" ? noValue() : unsupported();
}

bool ExtrasBranch::isEnabled(const ElementKey& key) const {
    return key.kind != Kind::StatusItem || item(key).spec.enabled;
}

std::vector<std::string> ExtrasBranch::actionNames(const ElementKey& key) const {
    return key.kind == Kind::StatusItem ? item(key).spec.actions : std::vector<std::string>{};
}

} // namespace mac_model
