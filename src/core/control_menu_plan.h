#pragma once

#include <vector>

namespace tavrin {

/// The entries of the control's menu, in their order.
enum class ControlMenuEntry {
    pinnedActions,
    configureItems,
    toggleHiding,
    refreshItems,
    settings,
    version,
    about,
    checkForUpdates,
    automaticUpdates,
    quit,
};

enum class ControlLeftClickAction { toggle, showConfiguration };

namespace ControlMenuPlan {

/// Groups of entries; a separator stands between groups. Pinned actions bring a group of their own once there
/// are any.
inline std::vector<std::vector<ControlMenuEntry>> sections() {
    using enum ControlMenuEntry;
    return {{pinnedActions},
            {configureItems, toggleHiding, refreshItems},
            {settings},
            {version, about, checkForUpdates, automaticUpdates},
            {quit}};
}

/// A click while the hint shows answers the hint instead of hiding.
inline ControlLeftClickAction leftClickAction(bool wasShowingFirstRunHint) {
    return wasShowingFirstRunHint ? ControlLeftClickAction::showConfiguration
                                  : ControlLeftClickAction::toggle;
}

} // namespace ControlMenuPlan

} // namespace tavrin
