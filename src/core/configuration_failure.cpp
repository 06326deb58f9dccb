#include "core/configuration_failure.h"

namespace tavrin {

namespace {

// Each continues "Hide NAME: " or "Show NAME: ".
namespace details {
constexpr const char* denied = "Accessibility access is required.";
constexpr const char* unavailable = "the item is no longer available; refresh and try again.";
constexpr const char* offscreenToHide =
    "the item is outside the rendered menu bar; temporarily quit a few menu bar apps, then refresh.";
constexpr const char* offscreenToShow =
    "macOS no longer renders the item in the native row; it will remain available in the tray.";
constexpr const char* blockedToHide =
    "the item cannot be reached without dragging through the notch; temporarily free menu bar space, then refresh.";
constexpr const char* blockedToShow =
    "no selectable part is visible beside the notch; it will remain available in the tray.";
constexpr const char* invalidGeometry =
    "the visible lane is not ready; wait a moment, refresh, and try again.";
constexpr const char* noEvents = "macOS did not accept the drag; close any open menu and try again.";
} // namespace details

} // namespace

std::optional<std::string> moveFailureDetail(MenuBarMoveResult result, MenuBarZone targetZone) {
    using enum MenuBarMoveResult;
    const bool isToBeHidden = targetZone == MenuBarZone::hidden;
    switch (result) {
    case eventsPosted:
    case alreadyPlaced:
    case userPressed:
        return std::nullopt;
    case accessibilityDenied:
        return details::denied;
    case itemUnavailable:
        return details::unavailable;
    case itemOffscreen:
        return isToBeHidden ? details::offscreenToHide : details::offscreenToShow;
    case blockedByNotch:
        return isToBeHidden ? details::blockedToHide : details::blockedToShow;
    case invalidGeometry:
        return details::invalidGeometry;
    case eventCreationFailed:
        return details::noEvents;
    }
    return std::nullopt;
}

std::string sharedIdentifierDetail() {
    return "several items of its app share one identifier; Tavrin can’t tell which one to move.";
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
