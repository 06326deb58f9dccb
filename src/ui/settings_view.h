#pragma once

#include "views/view.h"

#include <functional>
#include <optional>
#include <string>

namespace tavrin {

/// The row about starting at login.
struct StartAtLoginModel {
    bool isOn = false;
    bool needsApproval = false;
    bool isOffered = true;              // false: the system doesn't find this copy of Tavrin
    std::optional<std::string> refusal; // the system's sentence
    std::function<void()> toggle;
    std::function<void()> openLoginItems;
};

/// The state that the settings window shows at one moment, and the actions that it can ask for.
struct SettingsModel {
    struct Actions {
        std::function<void()> toggleAutomaticUpdates;
        std::function<void()> openAccessibilitySettings;
        std::function<void()> close;
    };

    StartAtLoginModel startAtLogin;
    View shortcut; // the row of the toggle shortcut
    bool hasUpdater = false;
    bool updatesAutomatically = false;
    bool isTrusted = false;
    std::string version;
    Actions actions;
};

View settingsView(SettingsModel model);

} // namespace tavrin
