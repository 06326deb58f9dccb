#include "app/configure_content.h"

#include "core/menu_bar_manager.h"
#include "ui/collapsed_menu_view.h"
#include "ui/configure_model.h"
#include "ui/configure_texts.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tavrin {

namespace {

ConfigureModel::Actions actionsOn(MenuBarManager& manager) {
    return {.setItems = [&manager](const std::vector<std::string>& identifiers,
                                   bool hidden) { manager.setItems(identifiers, hidden); },
            .applyAndHide = [&manager] { manager.applyConfigurationAndHide(); },
            .stopApplying = [&manager] { manager.cancelPendingConfiguration(); },
            .refreshItems = [&manager] { manager.refreshItems(); },
            .openAccessibilitySettings = [&manager] { manager.openAccessibilitySettings(); },
            .viewChanged = [&manager] { manager.configureViewChanged(); }};
}

/// From left to right, as the person sees them in the menu bar; items at one place keep their order.
std::vector<MenuBarItem> asInMenuBar(std::vector<MenuBarItem> items) {
    std::ranges::stable_sort(items, {}, [](const MenuBarItem& item) { return item.snapshot.frame.x; });
    return items;
}

ConfigureModel modelOf(MenuBarManager& manager) {
    const auto& state = manager.state();
    return {.texts = configureTexts(manager.runtimeMode(), manager.collapsePolicy()),
            .visibleItems = asInMenuBar(manager.visibleItems()),
            .hiddenItems = asInMenuBar(manager.hiddenItems()),
            .isTrusted = manager.permission().isTrusted(),
            .isScanning = state.isScanning.get(),
            .hasScanned = manager.hasCompletedScan(),
            .isApplying = state.isApplyingConfiguration.get(),
            .applyProgress = state.applyProgress.get(),
            .errorMessage = state.errorMessage.get(),
            .actions = actionsOn(manager)};
}

} // namespace

std::function<View(MenuBarManager&)> configureContent() {
    return [view = std::make_shared<CollapsedMenuView>()](MenuBarManager& manager) {
        return view->content(modelOf(manager));
    };
}

} // namespace tavrin
