#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "core/configuration_failure.h"
#include "discovery/menu_bar_item_reader.h"
#include "hiding/hiding_controller.h"
#include "hiding/item_inventory.h"
#include "hiding/menu_bar_state.h"
#include "hiding/own_status_items.h"
#include "hiding/status_item_geometry_keeper.h"
#include "movement/menu_bar_item_mover.h"
#include "platform/platform.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// How an apply has ended; a cancelled one ends without telling.
enum class ApplyOutcome {
    hidden,     // everything is in its place, and what is to be hidden is hidden
    incomplete, // the bar is expanded, and `errorMessage` says why
};

/// Makes the menu bar match what the user wants hidden: drags the items that are on the wrong side, looks
/// whether each has arrived, and hides when all have. One apply runs at a time; a newer one cancels it. Main
/// thread.
class ConfigurationApplier {
  public:
    static constexpr int attemptsMax = 3;
    static constexpr int verificationChecksMax = 15;
    static constexpr Seconds verificationInterval{0.16};

    /// Places the items that the system hosts in one process beside the control; whether it could.
    using ArrangeHostedItems = std::function<Task<bool>()>;

    /// `arrangeHostedItemsAroundControl` is used in the mode without a spacer, and may be empty in the other.
    ConfigurationApplier(const Platform& platform, MenuBarState& state, MenuBarRuntimeMode mode,
                         AccessibilityPermission& permission, OwnStatusItems& items,
                         StatusItemGeometryKeeper& geometry, ItemInventory& inventory,
                         HidingController& hiding, MenuBarItemReader& reader, MenuBarItemMover& mover,
                         ArrangeHostedItems arrangeHostedItemsAroundControl);
    ConfigurationApplier(const ConfigurationApplier&) = delete;
    ConfigurationApplier& operator=(const ConfigurationApplier&) = delete;

    /// Starts an apply, unless Accessibility is not granted: then only `errorMessage` is set.
    void applyConfigurationAndHide();

    /// Applies and waits for the end; none when the apply, or the awaiting job, was cancelled.
    Task<std::optional<ApplyOutcome>> applyConfiguration();

    /// When this returns, no button is down, the pointer is back, and nothing is being applied.
    void cancelPendingConfiguration() { pendingConfigurationTask_.cancel(); }

  private:
    static constexpr Seconds settleWait{0.22}; // the status items find their places after an expand

    /// An item on the wrong side.
    struct PlannedMove {
        MenuBarItemSnapshot item;
        MenuBarZone targetZone;
    };

    /// By the identifiers of the items.
    using Failures = std::vector<std::pair<std::string, ConfigurationFailure>>;
    using MoveOutcome = std::expected<void, std::string>; // or the detail of the failure

    Task<ApplyOutcome> perform();
    Task<> prepare();
    Task<bool> arrange();
    Task<Failures> performMoves();
    Task<MoveOutcome> place(PlannedMove move);
    Task<bool> waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone);
    ApplyOutcome finish(const Failures& failures);

    std::vector<PlannedMove> plannedMoves() const;
    void addUnplaced(Failures& failures) const;
    const MenuBarItemSnapshot* detected(const std::string& identifier) const;
    std::optional<MenuBarMoveGeometry> currentMoveGeometry() const;

    const Platform& platform_;
    MenuBarState& state_;
    MenuBarRuntimeMode mode_;
    AccessibilityPermission& permission_;
    OwnStatusItems& items_;
    StatusItemGeometryKeeper& geometry_;
    ItemInventory& inventory_;
    HidingController& hiding_;
    MenuBarItemReader& reader_;
    MenuBarItemMover& mover_;
    ArrangeHostedItems arrangeHostedItemsAroundControl_;
    Job<ApplyOutcome> pendingConfigurationTask_;
};

} // namespace tavrin
