#pragma once

#include "concurrency/scheduler.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace mac_model {

/// How the window server reports the windows of a bundle's status items.
enum class WindowReport {
    Right,
    Displaced, // 40 points further right than they are
    Doubled,   // two windows for one item
};
inline constexpr std::array<std::string_view, 3> windowReportNames{"no", "displaced", "doubled"};

/// How the menus of a bundle's status items and menu bar misbehave towards Accessibility.
struct MenuFaults {
    bool ignoresPress = false;         // actions on its status items come to nothing
    bool blocksInPress = false;        // such an action opens the menu and isn't answered in time
    Seconds opensAfter{0};             // between such an action and the menu
    std::optional<Seconds> fillsAfter; // a menu lists nothing until it has been open for so long
    bool hidesShownMenu = false;       // AXShownMenuUIElement is unsupported
    bool refusesChoices = false;       // actions on entries fail
    bool ignoresCancel = false;
    bool ignoresEscape = false;    // posted to the process; the person's own isn't
    bool isDisabledBehind = false; // entries of its menu bar while it isn't the active application
};

/// Faults of this Mac, besides the settings of `Uncertainties`. They lie over the truth: clearing one heals
/// the Mac.
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

    /// Between a change in the menu bar and the new places of its items. A busy Mac takes longer.
    static constexpr Seconds usualArrangingTime{0.02};
    Seconds arrangingTime = usualArrangingTime;

    /// Becoming active is a request that the window server grants so much later.
    Seconds activationTime{0.02};

    /// No process can make an event source or an event.
    bool eventsFail = false;

    /// The window server's private functions can't be found.
    bool windowServerAbsent = false;

    std::map<std::string, MenuFaults, std::less<>> menus; // by bundle

    std::map<std::string, WindowReport, std::less<>> misreportedWindows; // by bundle
};

} // namespace mac_model
