#pragma once

#include "base/geometry.h"
#include "desktop/desktop_file.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace mac_model {

// Where status items stand on a menu bar: a pure function of the items, the screen and the rules. One run of
// items, without gaps, from the screen's right edge to the left: the clock, the other fixed items, then by
// ascending preferred position, then those without one in the order of their creation. Up to macOS 26 it runs
// on under the notch and off the screen; see hosted_layout.h for macOS 27.

enum class StatusItemIdentifier : std::uint64_t { None = 0 };

/// macOS cuts longer lengths to this one.
inline constexpr double statusItemLengthMax = 10'000;

enum class HiddenReason { Offscreen, Notch, Dropped, Overflow, Restricted, BarNotVisible };
inline constexpr std::string_view hiddenReasonNames[] = {"offscreen", "notch",      "dropped",
                                                         "overflow",  "restricted", "barNotVisible"};

/// The words of the driving protocol.
constexpr std::string_view nameOf(HiddenReason reason) {
    return hiddenReasonNames[static_cast<std::size_t>(reason)];
}

struct LayoutItem {
    StatusItemIdentifier identifier{};
    std::int32_t owner = 0;
    double width = 0;
    std::optional<double> preferredPosition;
    bool isFixed = false;
    bool isClock = false;
    bool isForcedBehindNotch = false; // stands under the notch, outside the run
    bool isRestricted = false;        // macOS shows it nowhere; its window waits below the screen
};

struct LayoutRules {
    Uncertainties uncertainties;
    bool dropsOwnersOfLongItems = false;
    double menusEnd = 0; // x where the front application's menus end
};

struct PlacedItem {
    StatusItemIdentifier identifier{};
    Rect frame;
    bool isDrawn = false;            // any part of it
    std::optional<HiddenReason> why; // none also for an item of width 0, which has nothing to draw

    bool operator==(const PlacedItem&) const = default;
};

/// Identifiers ascend in the order of creation. The result stands from right to left, with items outside the
/// run last.
std::vector<PlacedItem> layOutStatusItems(std::span<const LayoutItem> items, const ScreenSpec&,
                                          const LayoutRules&);

/// The items of the run from right to left.
std::vector<const LayoutItem*> runOf(std::span<const LayoutItem> items, const ScreenSpec&,
                                     const LayoutRules&);

/// Places those that are in no run: restricted ones, and those that are forced behind the notch.
void placeOutsideRun(std::span<const LayoutItem> items, const ScreenSpec&, const LayoutRules&,
                     std::vector<PlacedItem>& result);

/// The frame in the screen's menu bar of something that wide.
Rect placeInBar(const ScreenSpec&, double x, double width);

/// Whether an item is so long that it serves to push others: from half the screen's width on.
bool isLongOn(const ScreenSpec&, double width);

/// The part of the menu bar under the camera; none on a screen without a notch.
std::optional<Rect> notchOf(const ScreenSpec&);

/// The frame on another screen of an item that has `frame` on the primary: as far from its right edge.
Rect frameOnScreen(Rect frame, const ScreenSpec& primary, const ScreenSpec& other);

} // namespace mac_model
