#pragma once

#include "platform/platform.h"
#include "shortcuts/toggle_shortcut_controller.h"
#include "views/view.h"

namespace tavrin {

/// The settings' row for the toggle shortcut, as it is now. The controller outlives what shows it.
View toggleShortcutSettingsView(const Platform& platform, ToggleShortcutController& controller);

} // namespace tavrin
