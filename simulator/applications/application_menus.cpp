#include "applications/application_menus.h"

#include "screen/menu_layout.h"
#include "screen/placement.h"

#include <utility>

namespace mac_model {

namespace {

constexpr std::size_t applicationTitle = 1;

std::size_t titleCount(const ApplicationSpec& application) { return application.menuBar.size() + 2; }

std::string titleOf(const ApplicationSpec& application, std::size_t title) {
    if (title == 0) return "Apple";
    return title == applicationTitle ? application.name : application.menuBar[title - 2].title;
}

} // namespace

std::vector<MenuTitle> ApplicationMenus::titlesOn(const ScreenSpec& screen) const {
    const auto* owner = screens_.isMenuBarShown() ? processes_.menuBarOwner() : nullptr;
    return owner ? menuTitles(owner->application, screen) : std::vector<MenuTitle>{};
}

std::optional<std::size_t> ApplicationMenus::titleAt(Point point) const {
    for (const auto& screen : screens_.screens()) {
        const auto titles = titlesOn(screen);
        for (std::size_t i = 0; i < titles.size(); ++i)
            if (titles[i].frame.contains(point)) return i;
    }
    return std::nullopt;
}

void ApplicationMenus::toggle(std::size_t title, Point point) {
    const auto* owner = processes_.menuBarOwner();
    if (!owner || !owner->application.responding || title >= titleCount(owner->application)) return;
    const MenuAnchor anchor{.item = StatusItemIdentifier::None, .title = title};
    if (menus_.anchor() == anchor) return menus_.close();
    MenuRequest request;
    request.items = menuUnderTitle(owner->application, title);
    request.area = titlesOn(screenFor(screens_.screens(), point))[title].frame;
    request.owner = owner->identifier;
    request.anchor = anchor;
    request.onChosen = [this, process = owner->identifier, title](const MenuPath& path) {
        run(process, title, path);
    };
    menus_.open(std::move(request));
}

void ApplicationMenus::choose(ProcessIdentifier process, std::size_t title, const MenuPath& path) {
    const auto* owner = processes_.find(process);
    if (!owner || title >= titleCount(owner->application)) return;
    const auto items = menuUnderTitle(owner->application, title);
    const auto* entry = entryAt(items, path);
    const bool isOpen =
        processes_.menuBarOwner() == owner && menus_.anchor() && menus_.anchor()->title == title;
    if (entry && !entry->items.empty() && isOpen) return menus_.openSubmenuAt(path);
    if (!entry || !isChoosable(*entry)) return;
    if (isOpen)
        menus_.choose(path);
    else
        run(process, title, path);
}

bool ApplicationMenus::chooseByKey(std::string_view key, const std::vector<Modifier>& modifiers) {
    const auto* front = processes_.frontmost();
    if (!front || !front->application.responding) return false;
    for (std::size_t title = applicationTitle; title < titleCount(front->application); ++title) {
        const auto path = pathOfKeyEquivalent(menuUnderTitle(front->application, title), key, modifiers);
        if (!path) continue;
        run(front->identifier, title, *path);
        return true;
    }
    return false;
}

void ApplicationMenus::run(ProcessIdentifier process, std::size_t title, const MenuPath& path) {
    const auto* owner = processes_.find(process);
    if (!owner) return;
    const auto application = owner->application;
    const auto titles = titlesAlong(menuUnderTitle(application, title), path);
    chosen_.record(application.bundleIdentifier, titleOf(application, title), titles);
    if (title == applicationTitle && titles == std::vector<std::string>{"Settings…"})
        return processes_.onSettingsChosen.emit(process);
    const bool quits = title == applicationTitle && titles == std::vector{"Quit " + application.name};
    // An application without a bundle can't be asked by its name; its entry is recorded and does nothing
    // else.
    if (quits && !application.bundleIdentifier.empty()) (void)processes_.quit(application.bundleIdentifier);
}

} // namespace mac_model
