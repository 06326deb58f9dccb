#pragma once

#include "accessibility/accessibility_permission.h"
#include "core/bar_readings.h"
#include "core/configuration_applier.h"
#include "core/item_placer.h"
#include "discovery/item_inventory.h"
#include "hiding/bar_activity.h"
#include "hiding/failure_message.h"
#include "hiding/hidden_items.h"
#include "hiding/hiding_controller.h"
#include "hiding/hiding_mechanism.h"
#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/own_status_items.h"
#include "movement/item_movement.h"
#include "platform/platform.h"
#include "settings/settings.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace tavrin {

/// The parts that know the menu bar and change it, without any window. They are made together, and each is
/// handed those before it.
struct HidingCore {
    /// `dressControl` gives a new control item its image and its action. All arguments outlive the core.
    HidingCore(const Platform& platform, AccessibilityPermission& permission,
               std::function<void(StatusItem&)> dressControl);
    HidingCore(const HidingCore&) = delete;
    HidingCore& operator=(const HidingCore&) = delete;

    /// Changes whether the items are wanted hidden, with all that hides together with them.
    void setHidden(std::span<const std::string> itemIdentifiers, bool hidden);

    /// Whether the user wants the item hidden.
    bool isHidden(const MenuBarItemSnapshot& item) const {
        return mechanism->isHidden(item, hiddenItems.identifiers().get());
    }

    BarActivity activity; // each flag is for the writer alone that is named there
    const MenuBarRuntimeMode mode;
    Settings settings;
    FailureMessage failure;
    HiddenItems hiddenItems;
    OwnStatusItems statusItems;
    ItemInventory inventory;
    std::unique_ptr<HidingMechanism> mechanism;
    HidingController hiding;
    ItemMovement movement;
    ItemPlacer placer;
    ConfigurationApplier applier;
    const BarReadings readings;
};

} // namespace tavrin
