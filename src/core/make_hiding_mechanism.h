#pragma once

#include "discovery/item_inventory.h"
#include "hiding/failure_message.h"
#include "hiding/hidden_items.h"
#include "hiding/hiding_mechanism.h"
#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"

#include <memory>

namespace tavrin {

/// Makes the mechanism that hides for the life of the process. All arguments outlive it.
std::unique_ptr<HidingMechanism> makeHidingMechanism(MenuBarRuntimeMode mode, const Platform& platform,
                                                     OwnStatusItems& items, ItemInventory& inventory,
                                                     const HiddenItems& hiddenItems, FailureMessage& failure);

} // namespace tavrin
