#pragma once

#include "discovery/menu_bar_item.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavrin {

class Text;

/// What is known of one item before it has a name.
struct ItemFacts {
    std::optional<std::string> canonicalIdentifier;
    std::optional<std::string> label;
    Rect frame;
};

/// The snapshots of all items of one application, in the order of a scan, as if nothing were hidden.
std::vector<MenuBarItemSnapshot> snapshotsOf(const RunningApplicationSnapshot&, std::span<const ItemFacts>,
                                             const Text&);

} // namespace tavrin
