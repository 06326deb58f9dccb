#pragma once

#include "concurrency/virtual_scheduler.h"
#include "menu_bar/hosted_layout.h"
#include "menu_bar/status_item_table.h"
#include "system/behaviour.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/visibility_lists.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace mac_model {

/// An item that is being carried, and the order of the run meanwhile.
struct CarriedItem {
    StatusItemIdentifier identifier{};
    double x = 0;                            // of its left edge, on the primary screen
    std::vector<StatusItemIdentifier> order; // of the run, from right to left
};

/// Where the status items stand in the right part of the menu bar. Changes show together after
/// `Faults::arrangingTime`; until then the old frames stand. Frames are on the primary screen.
///
/// Since macOS 27 the agent draws each display's bar. While it doesn't respond, nothing moves and no press
/// reaches an item; while it doesn't run, nothing is drawn.
class Arrangement {
  public:
    static constexpr Seconds occlusionLag{0.05};
    static constexpr double squareWidth = 26;

    Arrangement(VirtualScheduler&, StatusItemTable&, ProcessTable&, ScreensModel&, VisibilityLists&,
                const Behaviour&);
    Arrangement(const Arrangement&) = delete;
    Arrangement& operator=(const Arrangement&) = delete;

    /// Arranges anew after something that affects the places has changed.
    void refresh();
    void arrangeAfter(Seconds);

    /// The item drawn at a point of any screen's menu bar; null where there is none or the notch covers it.
    const StatusItemRecord* itemAt(Point) const;
    /// Where the item is on that screen's menu bar; none when it has no frame.
    std::optional<Rect> frameOn(const ScreenSpec&, const StatusItemRecord&) const;
    /// The item's place as Accessibility reports it; for an item that isn't drawn that is uncertain.
    Rect accessibilityFrame(const StatusItemRecord&) const;
    /// The same as the item's own process sees it: where it was drawn last.
    std::optional<Rect> frameForOwner(const StatusItemRecord&) const;
    /// Whether the item's own process sees it drawn.
    bool isDrawnForOwner(StatusItemIdentifier) const;
    /// Stores, as macOS does when the program quits in order, the place of each named item that had none.
    void storePositions(ProcessIdentifier);

    /// The process that draws the items since macOS 27; null when it doesn't run, and before.
    const Process* agent() const;

    /// The bars that it draws, one for each screen in their order; empty without it.
    const std::vector<HostedBar>& hostedBars() const { return bars_; }

    // For moving items.

    /// The items of the run from right to left.
    std::vector<StatusItemIdentifier> run() const;
    /// The width of the item's place in the run.
    double widthOf(const StatusItemRecord&) const;

    /// From the next arranging on, the run keeps this order for as long as something is being carried.
    void setCarried(std::optional<CarriedItem> carried) { carried_ = std::move(carried); }

    void arrange();

    /// Some items of the program were drawn or have gone, as far as `isDrawnForOwner` tells by now.
    Signal<> onProgramItemsDrawn;

  private:
    std::vector<LayoutItem> layoutItems() const;
    LayoutRules rulesOn(const ScreenSpec&) const;
    std::vector<HostedBar> layOutHostedBars() const;
    std::vector<PlacedItem> places() const;
    std::map<StatusItemIdentifier, PlacedItem> seenPlaces() const;
    bool isBarShown() const;
    bool isKeptOut(const StatusItemRecord&) const;
    void visibilityChanged();
    const StatusItemRecord* hostedItemAt(std::size_t screen, Point) const;
    std::optional<Rect> frameOnActiveBar(const StatusItemRecord&) const;
    Rect frameWhereNotDrawn(const StatusItemRecord&) const;
    Rect parkedFrame(const StatusItemRecord&) const;
    PlacedItem asSeen(PlacedItem) const;
    LayoutItem layoutItem(const StatusItemRecord&) const;
    std::optional<double> rankOf(StatusItemIdentifier) const;
    double positionToStore(const StatusItemRecord&) const;

    VirtualScheduler& scheduler_;
    WorldCalls world_;
    StatusItemTable& items_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const VisibilityLists& visibility_;
    const Behaviour& behaviour_;
    std::optional<CarriedItem> carried_;
    std::vector<HostedBar> bars_;
    bool isArranging_ = false;
    std::optional<Seconds> arrangedAt_; // when an item last moved
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
