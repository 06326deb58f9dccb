#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"
#include "core/configuration_failure.h"
#include "discovery/item_inventory.h"
#include "hiding/hidden_items.h"
#include "hiding/own_status_items.h"
#include "movement/item_movement.h"
#include "platform/screens.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// What a press of the mouse button comes to while an item is being dragged. It can't reach any button then.
enum class PressDuringDrag {
    StopsAll,  // where the user is offered a way to stop
    SpoilsTry, // the item is tried again
};

/// Drags the items that are on the wrong side of the control to the other, one after the other, and looks
/// whether each has arrived. What the user wants may change meanwhile, and the placing follows. Main thread.
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

    /// Whether the last scan has an item on the wrong side.
    bool hasWork() const { return nextMove({}).has_value(); }

    /// Places all items, scanning as it goes; the failures that remain. None when a press of the user's has
    /// stopped it. A cancelled job ends early, and its result means nothing.
    Task<std::optional<std::vector<ConfigurationFailure>>> placeAll(PressDuringDrag press);

  private:
    class ProgressSign;

    /// An item on the wrong side.
    struct PlannedMove {
        MenuBarItemSnapshot item;
        MenuBarZone targetZone;
    };

    /// How a move has ended.
    struct Placing {
        std::optional<std::string> failureDetail{};
        bool isStopped = false; // by the user
    };

    /// How moves have ended; one for each item, the last one.
    struct Attempt {
        PlannedMove move;
        std::optional<std::string> failureDetail;
    };

    using Attempts = std::vector<Attempt>;

    /// None when the user has stopped them.
    Task<std::optional<Attempts>> performMoves(PressDuringDrag press);
    Task<Placing> place(PlannedMove move, PressDuringDrag press);
    Task<bool> waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone);

    SkerrowPolicy policy() const { return hiddenItems_.policyFor(inventory_.items().get()); }

    /// The next item on the wrong side that was not brought to the right one, or tried to be.
    std::optional<PlannedMove> nextMove(const Attempts& attempts) const;
    /// Whether the user wants the item there, still.
    bool isWanted(const PlannedMove& move) const;
    void failUnplaced(Attempts& attempts) const;
    std::optional<std::string> detailOf(MenuBarMoveResult result, const PlannedMove& move) const;
    bool sharesIdentifier(const MenuBarItemSnapshot& item) const;
    /// The item in the last scan, also when its application has started anew since.
    const MenuBarItemSnapshot* detected(const MenuBarItemIdentity& identity) const;
    std::optional<MenuBarMoveGeometry> currentMoveGeometry() const;
    double boundaryX() const;
    std::vector<Rect> itemFrames() const;

    const Screens& screens_;
    const OwnStatusItems& ownItems_;
    ItemInventory& inventory_;
    const HiddenItems& hiddenItems_;
    ItemMovement& movement_;
    Published<std::string> progress_;
};

} // namespace tavrin
