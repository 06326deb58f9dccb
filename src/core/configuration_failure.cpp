#include "core/configuration_failure.h"

namespace tavrin {

std::optional<std::string> moveFailureDetail(MenuBarMoveResult result, MenuBarZone targetZone) {
    using enum MenuBarMoveResult;
    const bool isToBeHidden = targetZone == MenuBarZone::hidden;
    switch (result) {
    case eventsPosted:
    case alreadyPlaced:
        return std::nullopt;
    case accessibilityDenied:
        return "Accessibility access is required.";
    case itemUnavailable:
        return "the item is no longer available; refresh and try again.";
    case itemOffscreen:
        return isToBeHidden ? "the item is outside the rendered menu bar; temporarily quit a few menu bar "
                              "apps, then refresh."
                            : "macOS no longer renders the item in the native row; it will remain available "
                              "in the tray.";
    case blockedByNotch:
        return isToBeHidden ? "the item cannot be reached without dragging through the notch; temporarily "
                              "free menu bar space, then refresh."
                            : "no selectable part is visible beside the notch; it will remain available in "
                              "the tray.";
    case invalidGeometry:
        return "the visible lane is not ready; wait a moment, refresh, and try again.";
    case eventCreationFailed:
        return "macOS did not accept the drag; close any open menu and try again.";
    }
    return std::nullopt;
}

std::string refusedMoveDetail(MenuBarZone targetZone) {
    return targetZone == MenuBarZone::hidden ? "macOS kept it on the visible side."
                                             : "macOS kept it in its original position.";
}

std::string failureSummary(std::span<const ConfigurationFailure> failures) {
    std::string summary = "Couldn’t apply " + std::to_string(failures.size()) +
                          (failures.size() == 1 ? " change:" : " changes:");
    for (const auto& failure : failures) {
        const bool isToBeHidden = failure.targetZone == MenuBarZone::hidden;
        summary += (isToBeHidden ? "\nHide " : "\nShow ") + failure.itemName + ": " + failure.detail;
    }
    return summary;
}

} // namespace tavrin
