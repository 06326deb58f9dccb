#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"
#include "core/configuration_failure.h"
#include "discovery/item_inventory.h"
#include "hiding/hidden_items.h"
#include "hiding/own_status_items.h"
#include "movement/item_movement.h"
#include "platform/screens.h"

#include <expected>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// Drags the items that are on the wrong side of the control to the other, one after the other, and looks
/// whether each has arrived. Main thread.
class ItemPlacer {
  public:
    static constexpr int attemptsMax = 3;
    static constexpr int verificationChecksMax = 15;
    static constexpr Seconds verificationInterval{0.16};

    ItemPlacer(const Screens& screens, const OwnStatusItems& ownItems, ItemInventory& inventory,
               const HiddenItems& hiddenItems, ItemMovement& movement);
    ItemPlacer(const ItemPlacer&) = delete;
    ItemPlacer& operator=(const ItemPlacer&) = delete;

    /// One line for the user: which item is being placed; empty while none is.
    const Published<std::string>& progress() const { return progress_; }

    /// Places all items of the last scan, scanning as it goes; the failures that remain. A cancelled job ends
    /// early, and its result means nothing.
    Task<std::vector<ConfigurationFailure>> placeAll();

  private:
    class ProgressSign;

    /// An item on the wrong side.
    struct PlannedMove {
        MenuBarItemSnapshot item;
        MenuBarZone targetZone;
    };

    /// By the identifiers of the items.
    using Failures = std::vector<std::pair<std::string, ConfigurationFailure>>;
    using MoveOutcome = std::expected<void, std::string>; // or the detail of the failure

    Task<Failures> performMoves();
    Task<MoveOutcome> place(PlannedMove move);
    Task<bool> waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone);

    SkerrowPolicy policy() const { return hiddenItems_.policyFor(inventory_.items().get()); }

    std::vector<PlannedMove> plannedMoves() const;
    void addUnplaced(Failures& failures) const;
    const MenuBarItemSnapshot* detected(const std::string& identifier) const;
    std::optional<MenuBarMoveGeometry> currentMoveGeometry() const;

    const Screens& screens_;
    const OwnStatusItems& ownItems_;
    ItemInventory& inventory_;
    const HiddenItems& hiddenItems_;
    ItemMovement& movement_;
    Published<std::string> progress_;
};

} // namespace tavrin
