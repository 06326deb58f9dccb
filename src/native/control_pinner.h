#pragma once

#include "concurrency/job.h"
#include "discovery/item_inventory.h"
#include "hiding/bar_activity.h"
#include "hiding/own_status_items.h"
#include "native/policy/native_control_pinning.h"
#include "platform/platform.h"

#include <vector>

namespace tavrin {

/// Drags Tavrin's control to the left end of the row of items, so that it stays out of the overflow and other
/// items come and go right of it. Only the control is ever dragged. On some macOS 27 a drag of a program's
/// arrives at the control as a click: such a press is dropped, and nothing is dragged any longer then. Main
/// thread.
class ControlPinner {
  public:
    ControlPinner(const Platform& platform, const BarActivity& activity, OwnStatusItems& items,
                  ItemInventory& inventory)
        : platform_(platform)
        , activity_(activity)
        , items_(items)
        , inventory_(inventory) {}

    ControlPinner(const ControlPinner&) = delete;
    ControlPinner& operator=(const ControlPinner&) = delete;

    /// Once the bar has closed ranks after a hide, unless something else goes on then.
    void pinLater();

    void cancel() { task_.cancel(); }

    /// Whether the control leads the row in the end.
    Task<bool> pin();

    /// Whether a press on the control is the effect of a drag of ours. Asked once for each press.
    bool takesPress();

  private:
    static constexpr Seconds settleWait{0.3};
    static constexpr Seconds lookInterval{0.16};
    static constexpr int looksMax = 15;
    static constexpr Seconds pressDelayMax{0.3};

    /// Tells that a drag of ours is under way, also when its job ends early.
    class DragSign;

    Task<> pinWhenSettled();
    bool isFree() const;
    bool mayPost() const;
    bool leads() const;
    std::optional<Point> destination() const;
    std::vector<Rect> itemFrames() const;
    NativeControlPinning::HorizontalRange range() const;
    Task<> drag(Point destination);

    const Platform& platform_;
    const BarActivity& activity_;
    OwnStatusItems& items_;
    ItemInventory& inventory_;
    bool isOff_ = false; // until the process ends
    bool isDragging_ = false;
    Seconds lastDrag_{-1};
    Job<> task_;
};

} // namespace tavrin
