#pragma once

#include "discovery/menu_bar_item.h"
#include "ui/configure_texts.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// The state that the configure window shows at one moment, and the actions that it can ask for.
struct ConfigureModel {
    struct Actions {
        std::function<void(const std::vector<std::string>& identifiers, bool hidden)> setItems;
        std::function<void()> applyAndHide;
        std::function<void()> stopApplying;
        std::function<void()> refreshItems;
        std::function<void()> openAccessibilitySettings;
        std::function<void()> viewChanged; // shows the window anew, for a change of the view's own
    };

    ConfigureTexts texts;
    std::vector<MenuBarItem> visibleItems;
    std::vector<MenuBarItem> hiddenItems;
    bool isTrusted = false;
    bool isScanning = false;
    bool hasScanned = false; // the items are those of a scan
    bool isApplying = false;
    std::string applyProgress; // empty while there is none
    std::optional<std::string> errorMessage;
    Actions actions;
};

} // namespace tavrin
