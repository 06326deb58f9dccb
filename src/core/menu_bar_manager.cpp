#include "core/menu_bar_manager.h"

#include "platform/application.h"
#include "platform/workspace.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace tavrin {

namespace {

/// The reason why the toggle shortcut can't be this one: a pin has it. None when no pin does.
std::optional<std::string> conflictWithPins(const std::vector<PinnedAction>& pins,
                                            const HotKeyShortcut& shortcut) {
    const auto user =
        std::ranges::find(pins, std::optional(shortcut), [](const PinnedAction& pin) { return pin.hotKey; });
    if (user == pins.end()) return std::nullopt;
    return "Already used by the pin \"" + user->name + "\".";
}

} // namespace

MenuBarManager::MenuBarManager(const Platform& platform, AccessibilityPermission& permission,
                               AppUpdates& updates, Hooks hooks)
    : platform_(platform)
    , permission_(permission)
    , core_(platform, permission, [this](StatusItem& control) { control_.dress(control); })
    , hotKeyRegistrars_(platform.hotKeys)
    , toggleShortcut_(ToggleShortcutStore(platform.defaults), hotKeyRegistrars_.make(),
                      [this] { toggleCollapse(); })
    , hint_(platform, core_.settings, core_.statusItems)
    , configure_(platform, core_, hint_,
                 [this, view = std::move(hooks.configureView)] { return view(*this); })
    , pinnedActions_(platform, permission,
                     {.isHidingItems = [this] { return core_.activity.isCollapsed.get(); },
                      .noticeAnchor = [this] { return core_.statusItems.validControlGlyphFrame(); },
                      .editPin = [this](const Uuid&) { showConfiguration(); }})
    , control_(platform, core_.activity, core_.statusItems, hint_, updates,
               {.takesPress = [this] { return core_.mechanism->takesControlPress(); },
                .toggleCollapse = [this] { toggleCollapse(); },
                .showConfiguration = [this] { showConfiguration(); },
                .cancelConfigurationRestore = [this] { configure_.cancelPendingRestore(); },
                .cancelPendingConfiguration = [this] { cancelPendingConfiguration(); },
                .refreshItems = [this] { refreshItems(); },
                .showSettings = std::move(hooks.showSettings),
                .appendPinnedActions = [this](Menu& menu) { pinnedActions_.appendMenuSection(menu); }})
    , startUp_(platform, permission, core_, hint_, configure_)
    , announcements_(platform.application, core_.readings)
    , screenObserver_(observeScreens()) {
    toggleShortcut_.conflict = [this](const HotKeyShortcut& shortcut) {
        return conflictWithPins(pinnedActions_.store().pins(), shortcut);
    };
    core_.statusItems.configureStatusItems(OwnStatusItems::PositionSeed::IfAbsent);
    startUp_.begin();
}

MenuBarManager::~MenuBarManager() = default;

Subscription MenuBarManager::observeScreens() {
    return platform_.screens.onChanged([this] {
        core_.hiding.adaptToScreens();
        if (core_.inventory.hasCompletedScan()) refreshItems();
    });
}

void MenuBarManager::openAccessibilitySettings() { permission_.openSettings(platform_.workspace); }

Task<> MenuBarManager::prepareForTermination() {
    startUp_.cancel();
    cancelPendingConfiguration();
    pinnedActions_.cancel();
    configure_.close();
    co_await core_.hiding.restoreForTermination();
}

std::vector<MenuBarItem> MenuBarManager::visibleItems() const { return itemsConfigured(false); }

std::vector<MenuBarItem> MenuBarManager::hiddenItems() const { return itemsConfigured(true); }

std::vector<MenuBarItem> MenuBarManager::itemsConfigured(bool hidden) const {
    std::vector<MenuBarItem> items;
    for (auto item : core_.inventory.items().get()) {
        if (isConfiguredHidden(item) != hidden) continue;
        item.snapshot.isMovable = core_.mechanism->canHide(item.snapshot);
        items.push_back(std::move(item));
    }
    return items;
}

bool MenuBarManager::isConfiguredHidden(const MenuBarItem& item) const {
    return core_.isHidden(item.snapshot);
}

void MenuBarManager::setItems(const std::vector<std::string>& identifiers, bool hidden) {
    core_.setHidden(identifiers, hidden);
}

} // namespace tavrin
