#pragma once

#include "concurrency/virtual_scheduler.h"
#include "menu_bar/status_item_table.h"
#include "system/behaviour.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/world_calls.h"

#include <optional>
#include <utility>
#include <vector>

namespace mac_model {

/// An item on its way, and the run as it is meanwhile.
struct CarriedItem {
    StatusItemIdentifier identifier{};
    double x = 0;                            // of its left edge, on the primary screen
    std::vector<StatusItemIdentifier> order; // of the run, from right to left
};

/// Where the status items stand in the right part of the menu bar. A change shows after `arrangingTime`,
/// several together; until then the old frames stand. Frames are on the primary screen.
class Arrangement {
  public:
    static constexpr tavrin::Seconds arrangingTime{0.02};
    static constexpr tavrin::Seconds occlusionLag{0.05};
    static constexpr double squareWidth = 26;

    Arrangement(tavrin::VirtualScheduler&, StatusItemTable&, ProcessTable&, ScreensModel&, const Behaviour&);
    Arrangement(const Arrangement&) = delete;
    Arrangement& operator=(const Arrangement&) = delete;

    /// Arranges anew, because something that bears on it has changed.
    void refresh();
    void arrangeAfter(tavrin::Seconds);

    /// The item drawn at a point of any screen's menu bar; null where none is or the notch covers it.
    const StatusItemRecord* itemAt(tavrin::Point) const;
    /// Where the item is on that screen's menu bar; none when it has no frame.
    std::optional<tavrin::Rect> frameOn(const ScreenSpec&, const StatusItemRecord&) const;
    /// What Accessibility says of its place; the place of an item pushed off the screen is uncertain.
    tavrin::Rect accessibilityFrame(const StatusItemRecord&) const;
    /// Whether the item's own process sees it drawn.
    bool isDrawnForOwner(StatusItemIdentifier) const;
    /// What macOS keeps when the program quits in order: the place of each named item that had none.
    void storePositions(tavrin::ProcessIdentifier);

    // For those who move items.

    /// The items of the run from right to left.
    std::vector<StatusItemIdentifier> run() const;
    /// Of the item's place in the run.
    double widthOf(const StatusItemRecord&) const;

    /// The run stands as this says for as long as something is being carried, from the next arranging on.
    void setCarried(std::optional<CarriedItem> carried) { carried_ = std::move(carried); }

    void arrange();

  private:
    std::vector<PlacedItem> places() const;
    LayoutItem layoutItem(const StatusItemRecord&) const;
    std::optional<double> rankOf(StatusItemIdentifier) const;
    double positionToStore(const StatusItemRecord&) const;

    tavrin::VirtualScheduler& scheduler_;
    WorldCalls world_;
    StatusItemTable& items_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const Behaviour& behaviour_;
    std::optional<CarriedItem> carried_;
    bool isArranging_ = false;
    std::optional<tavrin::Seconds> arrangedAt_; // when an item last moved
    std::vector<tavrin::Subscription> subscriptions_;
};

} // namespace mac_model
