#include "menu_bar/titles.h"

#include "base/unicode.h"
#include "menu_bar/status_layout.h"

#include <algorithm>

namespace mac_model {

namespace {

constexpr double appleMenuWidth = 44;
constexpr double titlePadding = 20;
constexpr double characterWidth = 7.5; // roughly that of the menu bar's font
constexpr std::size_t titlesBeforeOwn = 2;

double widthOf(const std::string& title) {
    return titlePadding + characterWidth * static_cast<double>(tavrin::countOfCharacters(title));
}

MenuItemSpec entry(std::string title, std::string key = {}) {
    MenuItemSpec item;
    item.title = std::move(title);
    if (!key.empty()) item.modifiers = {Modifier::Command};
    item.key = std::move(key);
    return item;
}

MenuItemSpec separator() {
    MenuItemSpec item;
    item.separator = true;
    return item;
}

std::vector<MenuItemSpec> appleMenu() {
    return {entry("About This Mac"), separator(),       entry("System Settings…"), separator(),
            entry("Sleep"),          entry("Restart…"), entry("Shut Down…")};
}

std::vector<MenuItemSpec> applicationMenu(const ApplicationSpec& application) {
    const auto& name = application.name;
    std::vector<MenuItemSpec> entries{entry("About " + name), separator()};
    if (application.hasSettings) entries.insert(entries.end(), {entry("Settings…", ","), separator()});
    entries.insert(entries.end(), {entry("Hide " + name, "h"), separator(), entry("Quit " + name, "q")});
    return entries;
}

} // namespace

std::vector<MenuTitle> menuTitles(const ApplicationSpec& application, const ScreenSpec& screen) {
    std::vector<MenuTitle> titles;
    const auto notch = notchOf(screen);
    double x = screen.frame.x;
    const auto add = [&](const std::string& title, double width) {
        if (notch && x < notch->maxX() && x + width > notch->x) x = notch->maxX();
        titles.push_back({title, {x, screen.frame.y, width, screen.menuBarHeight}});
        x += width;
    };
    add("Apple", appleMenuWidth);
    add(application.name, widthOf(application.name));
    for (const auto& menu : application.menuBar) add(menu.title, widthOf(menu.title));
    return titles;
}

double menusEnd(const ApplicationSpec* application, const ScreenSpec& screen) {
    return application ? menuTitles(*application, screen).back().frame.maxX() : screen.frame.x;
}

std::vector<MenuItemSpec> menuUnderTitle(const ApplicationSpec& application, std::size_t title) {
    if (title == 0) return appleMenu();
    if (title == 1) return applicationMenu(application);
    const auto own = title - titlesBeforeOwn;
    return own < application.menuBar.size() ? application.menuBar[own].items : std::vector<MenuItemSpec>{};
}

} // namespace mac_model
