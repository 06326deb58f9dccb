#pragma once

#include "menu_bar/arrangement.h"
#include "menu_bar/status_item_table.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <vector>

namespace mac_model {

enum class PutDown { There, WhereItWas };

/// An item that is being moved along the menu bar, as with Command held. It is put back when it is removed or
/// the displays change.
class ItemDrag {
  public:
    static constexpr Seconds slidingTime{0.2}; // of an item that was put down

    ItemDrag(StatusItemTable&, Arrangement&, const ProcessTable&, ScreensModel&, const Behaviour&);
    ItemDrag(const ItemDrag&) = delete;
    ItemDrag& operator=(const ItemDrag&) = delete;

    /// Whether posted events can move items. Since macOS 27 that is uncertain: their press may reach the
    /// owner instead, as a click.
    bool followsPostedEvents() const;

    /// Takes an item to move it; false when macOS doesn't let it be moved. From then on it follows `carryTo`,
    /// and items make room for it.
    bool pickUp(StatusItemIdentifier);
    /// `x` is its left edge on the primary screen. It changes places with a neighbour over whose middle it
    /// has come; items that macOS holds in place are never passed.
    void carryTo(double x);
    /// Leaves the item where it is and stores its new place, or sends it back. It arrives after
    /// `slidingTime`.
    void putDown(PutDown);

  private:
    struct Carried {
        CarriedItem item;
        bool wasBehindNotch = false;
        std::vector<StatusItemIdentifier> before; // the run, from right to left
    };

    bool isMovable(const StatusItemRecord&) const;
    bool isDragLost();
    void changePlaces(CarriedItem&) const;
    void returnBehindNotch(StatusItemRecord&, bool wasBehindNotch, PutDown) const;
    void storeNewPlace(const std::vector<StatusItemIdentifier>& order, StatusItemIdentifier moved);
    double positionFor(const StatusItemRecord&, double above) const;
    bool hasPosition(const StatusItemRecord&) const;

    StatusItemTable& items_;
    Arrangement& arrangement_;
    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const Behaviour& behaviour_;
    std::optional<Carried> carried_;
    int dragsSeen_ = 0; // since `loseDrags` was set
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
