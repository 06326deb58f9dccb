#pragma once

#include "views/view.h"

#include <functional>
#include <string>

namespace tavrin {

/// The state that the settings window shows at one moment, and the actions that it can ask for.
struct SettingsModel {
    struct Actions {
        std::function<void()> toggleAutomaticUpdates;
        std::function<void()> openAccessibilitySettings;
        std::function<void()> close;
    };

    View shortcut; // the row of the toggle shortcut
    bool hasUpdater = false;
    bool updatesAutomatically = false;
    bool isTrusted = false;
    std::string version;
    Actions actions;
};

View settingsView(SettingsModel model);

} // namespace tavrin
