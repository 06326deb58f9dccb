#pragma once

#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace mac_model {

/// How the window server tells of the windows of a bundle's status items.
enum class WindowReport {
    Right,
    Displaced, // 40 points further right than they are
    Doubled,   // two windows for one item
};
inline constexpr std::array<std::string_view, 3> windowReportNames{"no", "displaced", "doubled"};

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

    /// Other than 0: every n-th drag of a status item comes to nothing, counted while this is set.
    int loseDrags = 0;

    /// While the program drags something by synthetic events, the person's hand is on the mouse, too.
    bool personMovesPointerDuringDrags = false;

    /// No process can make an event source or an event.
    bool eventsFail = false;

    /// The window server's private functions can't be found.
    bool windowServerAbsent = false;

    std::map<std::string, WindowReport, std::less<>> misreportedWindows; // by bundle
};

} // namespace mac_model
