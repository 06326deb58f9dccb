#pragma once

#include "pins/menus/pinned_menu_node.h"
#include "pins/store/pinned_action.h"
#include "platform/text.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// Decides what may be pinned and run.
namespace tavrin::PinnedActionPolicy {

enum class NodeExclusion { Toggle, Disabled, NotPressable };

/// A sentence without its full stop.
std::string_view reason(NodeExclusion exclusion);

/// The reason why this item can't be run; none when it can.
std::optional<NodeExclusion> exclusion(const PinnedMenuNode& node);

/// The same for the last of the items on the way from the menu's root.
std::optional<NodeExclusion> exclusionForTrail(std::span<const PinnedMenuNode> trail);

/// Whether a word in any title of the path says that something may end, go or leave the Mac.
bool looksDisruptive(const std::vector<PinnedMenuStep>& path, const Text& text);

} // namespace tavrin::PinnedActionPolicy
