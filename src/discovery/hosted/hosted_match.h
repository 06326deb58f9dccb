#pragma once

#include "discovery/hosted/hosted_entries.h"
#include "discovery/menu_bar_item.h"

#include <span>
#include <vector>

namespace tavrin {

/// The items that their applications list and that the agent draws, each where the agent has it. What the
/// agent doesn't list isn't in the bar, whatever its owner says. Items are told apart by identifier, then by
/// place; those that can't be told apart count as drawn, where their owner says.
std::vector<MenuBarItemSnapshot> drawnByAgent(std::vector<MenuBarItemSnapshot> items,
                                              std::span<const HostedEntry> entries, ProcessIdentifier agent);

} // namespace tavrin
