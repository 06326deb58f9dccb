#include "accessibility/accessibility_tree.h"
#include "menu_bar/titles.h"

#include <algorithm>

namespace mac_model {

using tavrin::AttributeResult;
using tavrin::AttributeValue;
using Error = tavrin::AccessibilityError;

namespace {

AttributeResult unsupported() { return std::unexpected(Error::AttributeUnsupported); }

AttributeResult noValue() { return std::unexpected(Error::NoValue); }

/// For attributes that an element always knows, but which may be empty.
AttributeResult textOrNone(const std::string& text) {
    return text.empty() ? noValue() : AttributeResult(text);
}

AttributeResult elements(const std::vector<ElementKey>& keys) {
    std::vector<tavrin::AccessibilityElement> list;
    for (const auto& key : keys) list.push_back(elementFor(key));
    return AttributeValue(std::move(list));
}

/// Bits of AXMenuItemCmdModifiers: Shift 1, Option 2, Control 4, and 8 for a key equivalent without Command.
double commandModifiers(const std::vector<Modifier>& modifiers) {
    const auto bit = [&](Modifier modifier, int value) {
        return std::ranges::find(modifiers, modifier) != modifiers.end() ? value : 0;
    };
    const int withoutCommand = bit(Modifier::Command, 8) ^ 8;
    return bit(Modifier::Shift, 1) | bit(Modifier::Option, 2) | bit(Modifier::Control, 4) | withoutCommand;
}

} // namespace

AttributeResult AccessibilityTree::attribute(const ElementKey& key, std::string_view name) const {
    if (name == "AXRole") return role(key);
    if (name == "AXParent") {
        const auto above = parent(key);
        return above ? AttributeResult(elementFor(*above)) : unsupported();
    }
    if (name == "AXChildren" || name == "AXVisibleChildren") {
        const auto below = children(key);
        return below ? elements(*below) : unsupported();
    }
    if (name == "AXPosition" || name == "AXSize" || name == "AXFrame") return geometry(key, name);
    return own(key, name);
}

AttributeResult AccessibilityTree::geometry(const ElementKey& key, std::string_view name) const {
    if (key.kind == Kind::Application) return unsupported();
    const auto rect = frame(key);
    if (!rect) return noValue();
    if (name == "AXPosition") return rect->origin();
    if (name == "AXSize") return rect->size();
    return *rect;
}

AttributeResult AccessibilityTree::own(const ElementKey& key, std::string_view name) const {
    if (key.kind == Kind::Application) return ofApplication(key, name);
    if (name == "AXEnabled") return isEnabled(key);
    switch (key.kind) {
    case Kind::StatusItem:
        return ofItem(key, name);
    case Kind::Title:
        return ofTitle(key, name);
    case Kind::StatusEntry:
    case Kind::TitleEntry:
        return ofEntry(key, name);
    case Kind::MenuBar:
    case Kind::ExtrasBar:
        return name == "AXFocused" ? AttributeResult(false) : unsupported();
    default:
        return unsupported();
    }
}

AttributeResult AccessibilityTree::ofApplication(const ElementKey& key, std::string_view name) const {
    const auto bar = [&](Kind kind) {
        ElementKey found = key;
        found.kind = kind;
        return elementFor(found);
    };
    const auto& application = process(key).application;
    if (name == "AXTitle") return application.name;
    if (name == "AXRoleDescription") return std::string("application");
    if (name == "AXFrontmost") return processes_.frontmost() == &process(key);
    if (name == "AXMenuBar") return hasMenuBar(key) ? AttributeResult(bar(Kind::MenuBar)) : noValue();
    if (name != "AXExtrasMenuBar") return unsupported();
    const bool hasBar = application.extras == ExtrasBar::Empty || !itemsInExtrasBar(key.process).empty();
    if (hasBar) return bar(Kind::ExtrasBar);
    return uncertainties_.emptyExtras == EmptyExtras::NoValue ? noValue() : unsupported();
}

AttributeResult AccessibilityTree::ofItem(const ElementKey& key, std::string_view name) const {
    const auto& record = item(key);
    if (name == "AXSubrole") return std::string("AXMenuExtra");
    if (name == "AXRoleDescription") return std::string("status menu");
    if (name == "AXTitle") return record.spec.title;
    if (name == "AXDescription") return textOrNone(record.spec.description);
    if (name == "AXHelp") return textOrNone(record.spec.help);
    if (name == "AXSelected") return record.isOpen;
    if (name == "AXShownMenuUIElement") return shownMenu(key);
    if (name == "AXIdentifier" && !record.spec.identifier.empty()) return record.spec.identifier;
    return name == "AXWindow" || name == "AXTopLevelUIElement" ? noValue() : unsupported();
}

AttributeResult AccessibilityTree::ofTitle(const ElementKey& key, std::string_view name) const {
    if (name == "AXTitle") {
        const auto& application = process(key).application;
        if (key.owner == 0) return std::string("Apple");
        return key.owner == 1 ? application.name : application.menuBar[key.owner - 2].title;
    }
    if (name == "AXShownMenuUIElement") return shownMenu(key);
    return name == "AXSelected" ? AttributeResult(menus_.isShownAt(key)) : unsupported();
}

AttributeResult AccessibilityTree::shownMenu(const ElementKey& key) const {
    if (menus_.faultsOf(key.process).hidesShownMenu) return unsupported();
    if (!menus_.isShownAt(key)) return noValue();
    return elementFor(children(key)->front());
}

AttributeResult AccessibilityTree::ofEntry(const ElementKey& key, std::string_view name) const {
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

} // namespace mac_model
