#include "core/control_item_controller.h"

#include "platform/application.h"

#include <string>
#include <utility>

namespace tavrin {

ControlItemController::ControlItemController(const Platform& platform, const BarActivity& activity,
                                             OwnStatusItems& items, FirstRunHint& hint, AppUpdates& updates,
                                             Actions actions)
    : platform_(platform)
    , activity_(activity)
    , items_(items)
    , hint_(hint)
    , updates_(updates)
    , actions_(std::move(actions))
    , collapseObservation_(activity.isCollapsed.subscribe([this](const bool&) {
        if (auto* control = items_.control()) updateControlIcon(*control);
    })) {}

void ControlItemController::dress(StatusItem& control) {
    control.setAction([this](StatusItemPress press) { handleControlClick(press); });
    control.setAccessibilityActions({{"Show Menu", [this] { handleControlClick(StatusItemPress::Right); }}});
    updateControlIcon(control);
}

void ControlItemController::updateControlIcon(StatusItem& control) {
    const bool isCollapsed = activity_.isCollapsed.get();
    control.setImage({.source = TemplateImage::Source::System,
                      .name = isCollapsed ? "chevron.right.2" : "chevron.left.2",
                      .description = isCollapsed ? "Reveal hidden items" : "Hide configured items"});
    control.setToolTip(isCollapsed ? "Tavrin: click to reveal hidden items; right-click to configure"
                                   : "Tavrin: click to hide configured items; right-click to configure");
    control.setAccessibilityLabel("Tavrin");
    control.setAccessibilityValue(isCollapsed ? "Items are hidden" : "All items are shown");
    control.setAlpha(1);
    items_.setPillShown(isCollapsed);
}

void ControlItemController::handleControlClick(StatusItemPress press) {
    if (actions_.takesPress()) return;
    actions_.cancelConfigurationRestore();
    if (hint_.wasJustClosedByControlPress()) return;
    const bool wasShowingFirstRunHint = hint_.isShowingOrPending();
    if (wasShowingFirstRunHint) hint_.dismiss();
    if (press == StatusItemPress::Right) {
        actions_.cancelPendingConfiguration(); // its drags would close the menu
        return showContextMenu();
    }
    switch (ControlMenuPlan::leftClickAction(wasShowingFirstRunHint)) {
    case ControlLeftClickAction::toggle:
        return actions_.toggleCollapse();
    case ControlLeftClickAction::showConfiguration:
        return actions_.showConfiguration();
    }
}

void ControlItemController::showContextMenu() {
    auto* control = items_.control();
    const auto glyph = items_.controlGlyphFrame();
    if (control && glyph) platform_.presentation.popUp(buildMenu(), *control, *glyph);
}

Menu ControlItemController::buildMenu() {
    Menu menu;
    for (const auto& section : ControlMenuPlan::sections()) {
        if (section.front() == ControlMenuEntry::pinnedActions) {
            actions_.appendPinnedActions(menu);
            continue;
        }
        if (!menu.items.empty()) menu.items.push_back(MenuItem::separator());
        for (const auto entry : section) menu.items.push_back(menuItem(entry));
    }
    return menu;
}

MenuItem ControlItemController::command(std::string title, std::function<void()> action,
                                        std::string keyEquivalent) const {
    MenuItem item;
    item.title = std::move(title);
    item.keyEquivalent = std::move(keyEquivalent);
    item.action = std::move(action);
    return item;
}

MenuItem ControlItemController::menuItem(ControlMenuEntry entry) {
    switch (entry) {
    case ControlMenuEntry::pinnedActions:
        return MenuItem::separator();
    case ControlMenuEntry::configureItems:
        return command("Configure Items…", actions_.showConfiguration);
    case ControlMenuEntry::toggleHiding:
        return command(activity_.isCollapsed.get() ? "Show All Items" : "Hide Configured Items",
                       actions_.toggleCollapse);
    case ControlMenuEntry::refreshItems:
        return command("Refresh Item List", actions_.refreshItems, "r");
    case ControlMenuEntry::settings:
        return command("Settings…", actions_.showSettings, ",");
    case ControlMenuEntry::version: {
        auto item = command(platform_.application.displayVersion(), nullptr);
        item.isEnabled = false;
        return item;
    }
    case ControlMenuEntry::about:
        return command("About Tavrin", [this] { platform_.application.showAboutPanel(); });
    case ControlMenuEntry::checkForUpdates: {
        auto item = command("Check for Updates…", [this] { updates_.checkNow(); });
        item.isEnabled = updates_.isAvailable();
        return item;
    }
    case ControlMenuEntry::automaticUpdates: {
        auto item = command("Automatically Update Tavrin",
                            [this] { updates_.setAutomatic(!updates_.isAutomatic()); });
        item.isEnabled = updates_.isAvailable();
        item.isChecked = updates_.isAutomatic();
        return item;
    }
    case ControlMenuEntry::quit:
        return command("Quit Tavrin", [this] { platform_.application.terminate(); }, "q");
    }
    return {};
}

} // namespace tavrin
