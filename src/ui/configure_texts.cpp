#include "ui/configure_texts.h"

#include <cstddef>

namespace tavrin {

namespace {

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

ConfigureTexts textsWithSpacer(const SkerrowPolicy& policy) {
    return {
        .reasonForAccess = "Tavrin uses Accessibility only to discover and Command-drag the menu bar items "
                           "you explicitly apply.",
        .explanation = "Drag items you do not need to see into Hidden. Items macOS puts behind the notch "
                       "show in a tray under it while everything is shown; macOS keeps Clock and Control "
                       "Center fixed.",
        .placement = placementSummary(policy),
    };
}

/// No item is moved there.
ConfigureTexts textsWhereMacOSHides() {
    return {
        .reasonForAccess = "Tavrin uses Accessibility only to read which apps currently have menu bar "
                           "icons. Hiding and revealing already work without it.",
        .explanation = "Drag items you do not need to see into Hidden. macOS 27 hides all of an app’s icons "
                       "together and keeps Clock and Control Center fixed.",
        .placement = {},
    };
}

} // namespace

ConfigureTexts configureTexts(MenuBarRuntimeMode mode, const SkerrowPolicy& policy) {
    return mode == MenuBarRuntimeMode::divider ? textsWithSpacer(policy) : textsWhereMacOSHides();
}

std::string placementSummary(const SkerrowPolicy& policy) {
    const auto moves = policy.pendingMoves().size();
    const auto overflow = policy.trayOverflow().size();
    std::string summary;
    if (moves > 0) summary = counted(moves, "item") + " will move";
    if (moves > 0 && overflow > 0) summary += " • ";
    if (overflow > 0) summary += counted(overflow, "overflow item") + " will show only with all items";
    return summary;
}

} // namespace tavrin
