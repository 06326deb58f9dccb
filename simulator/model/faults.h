#pragma once

#include <map>
#include <set>
#include <string>

namespace mac_model {

/// What can go wrong on this Mac beside the answers of `Uncertainties`. Faults lie over the truth: clearing
/// one heals the Mac. Whoever changes one that bears on the menu bar calls `StatusArea::refresh` afterwards.
struct Faults {
    /// After the menu bar was arranged, the program's items report for 0.05 s that they aren't drawn.
    bool occlusionLag = true;

    /// macOS hides all other items of a process that owns an item longer than half a screen; they keep their
    /// places.
    bool dropsOwnersOfLongItems = false;

    /// A change of the displays shows an empty list of screens for 0.2 s first.
    bool screensVanishBriefly = false;

    /// Bundles whose items stay where they are when dragged.
    std::set<std::string> refuseDrags;
};

} // namespace mac_model
