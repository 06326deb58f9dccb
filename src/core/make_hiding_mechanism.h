#pragma once

#include "discovery/bar_scan.h"
#include "discovery/item_inventory.h"
#include "hiding/bar_activity.h"
#include "hiding/failure_message.h"
#include "hiding/hidden_items.h"
#include "hiding/hiding_mechanism.h"
#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"
#include "settings/settings.h"

#include <memory>

namespace tavrin {

/// Makes the way to find other applications' items for the life of the process. The platform outlives it.
std::unique_ptr<BarScan> makeBarScan(MenuBarRuntimeMode mode, const Platform& platform);

/// What the mechanisms are made of; each takes what it needs.
struct HidingParts {
    const Platform& platform;
    BarActivity& activity;
    OwnStatusItems& items;
    ItemInventory& inventory;
    const HiddenItems& hiddenItems;
    Settings& settings;
    FailureMessage& failure;
};

/// Makes the mechanism that hides for the life of the process. All parts outlive it.
std::unique_ptr<HidingMechanism> makeHidingMechanism(MenuBarRuntimeMode mode, const HidingParts& parts);

} // namespace tavrin
