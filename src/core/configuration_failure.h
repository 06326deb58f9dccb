#pragma once

#include "discovery/menu_bar_item.h"
#include "movement/menu_bar_item_mover.h"

#include <optional>
#include <span>
#include <string>

namespace tavrin {

/// An item that could not be brought to where the user wants it.
struct ConfigurationFailure {
    std::string itemName;
    MenuBarZone targetZone = MenuBarZone::visible;
    std::string detail; // why; a lower-case clause with a full stop

    bool operator==(const ConfigurationFailure&) const = default;
};

/// Why a move did not start; none for a result that is no failure.
std::optional<std::string> moveFailureDetail(MenuBarMoveResult result, MenuBarZone targetZone);

/// Why an item can't be moved that has its identifier in common with another of its application.
std::string sharedIdentifierDetail();

/// Why an item is still in its place after it was dragged.
std::string refusedMoveDetail(MenuBarZone targetZone);

/// One message for all failures; there is at least one.
std::string failureSummary(std::span<const ConfigurationFailure> failures);

} // namespace tavrin
