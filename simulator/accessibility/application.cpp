#include "accessibility/application.h"

#include "menu_bar/titles.h"

namespace mac_model {

using Kind = ElementKey::Kind;

bool ApplicationBranch::hasMenuBar(const ElementKey& key) const {
    return process(key).application.policy == Policy::Regular && screens_.primary();
}

/// The Apple menu and the application's own come before those of its `menuBar`.
std::uint64_t ApplicationBranch::titleCount(const ElementKey& key) const {
    return process(key).application.menuBar.size() + 2;
}

bool ApplicationBranch::exists(const ElementKey& key) const {
    if (key.kind == Kind::Application) return true;
    return hasMenuBar(key) && (key.kind == Kind::MenuBar || key.owner < titleCount(key));
}

std::string ApplicationBranch::role(const ElementKey& key) const {
    if (key.kind == Kind::Application) return "AXApplication";
    return key.kind == Kind::MenuBar ? "AXMenuBar" : "AXMenuBarItem";
}

std::optional<ElementKey> ApplicationBranch::parent(const ElementKey& key) const {
    if (key.kind == Kind::Application) return std::nullopt;
    return childOf(key, key.kind == Kind::MenuBar ? Kind::Application : Kind::MenuBar, 0);
}

std::optional<Branch::Keys> ApplicationBranch::children(const ElementKey& key) const {
    Keys found;
    if (key.kind == Kind::Application) {
        found = agent_.windowsOf(key.process);
        if (hasMenuBar(key)) found.push_back(childOf(key, Kind::MenuBar, 0));
        if (!extras_.itemsOf(key.process).empty()) found.push_back(childOf(key, Kind::ExtrasBar, 0));
    } else if (key.kind == Kind::MenuBar) {
        for (std::uint64_t title = 0; title < titleCount(key); ++title)
            found.push_back(childOf(key, Kind::Title, title));
    } else {
        found.push_back(childOf(key, Kind::TitleMenu, key.owner));
    }
    return found;
}

std::optional<Rect> ApplicationBranch::frame(const ElementKey& key) const {
    const auto* screen = screens_.active();
    if (!screen || key.kind == Kind::Application) return std::nullopt;
    if (key.kind == Kind::Title) return menuTitles(process(key).application, *screen)[key.owner].frame;
    return Rect{screen->frame.x, screen->frame.y, screen->frame.width, screen->menuBarHeight};
}

AttributeResult ApplicationBranch::attribute(const ElementKey& key, std::string_view name) const {
    if (key.kind == Kind::Application) return ofApplication(key, name);
    if (key.kind == Kind::Title) return ofTitle(key, name);
    return name == "AXFocused" ? AttributeResult(false) : unsupported();
}

AttributeResult ApplicationBranch::ofApplication(const ElementKey& key, std::string_view name) const {
    if (name == "AXTitle") return process(key).application.name;
    if (name == "AXRoleDescription") return std::string("application");
    if (name == "AXWindows") return windows(key);
    if (name == "AXFrontmost") return processes_.frontmost() == &process(key);
    if (name == "AXMenuBar")
        return hasMenuBar(key) ? AttributeResult(elementFor(withKind(key, Kind::MenuBar))) : noValue();
    return name == "AXExtrasMenuBar" ? extrasBar(key) : unsupported();
}

AttributeResult ApplicationBranch::extrasBar(const ElementKey& key) const {
    const bool isThereWhenEmpty = process(key).application.extras == ExtrasBar::Empty;
    if (isThereWhenEmpty || !extras_.itemsOf(key.process).empty())
        return elementFor(withKind(key, Kind::ExtrasBar));
    return uncertainties_.emptyExtras == EmptyExtras::NoValue ? noValue() : unsupported();
}

/// Those of others aren't modelled.
AttributeResult ApplicationBranch::windows(const ElementKey& key) const {
    const auto keys = agent_.windowsOf(key.process);
    return keys.empty() ? unsupported() : elements(keys);
}

AttributeResult ApplicationBranch::ofTitle(const ElementKey& key, std::string_view name) const {
    if (name == "AXTitle") {
        const auto& application = process(key).application;
        if (key.owner == 0) return std::string("Apple");
        return key.owner == 1 ? application.name : application.menuBar[key.owner - 2].title;
    }
    if (name == "AXShownMenuUIElement")
        return menus_.shownMenu(key, childOf(key, Kind::TitleMenu, key.owner));
    return name == "AXSelected" ? AttributeResult(menus_.isShownAt(key)) : unsupported();
}

std::vector<std::string> ApplicationBranch::actionNames(const ElementKey& key) const {
    if (key.kind != Kind::Title) return {};
    return {"AXCancel", "AXPick", "AXPress"};
}

} // namespace mac_model
