#pragma once

#include "base/geometry.h"
#include "concurrency/job.h"
#include "hiding/bar_activity.h"
#include "native/restriction_keeper.h"
#include "platform/platform.h"

#include <functional>
#include <vector>

namespace tavrin {

/// Lifts the restriction while the pointer rests on the clock, which takes no clicks under one, and for as
/// long as Notification Center is open then. The pointer is watched only while something is restricted or
/// lifted. Main thread.
class ClockLift {
  public:
    /// `restore` restricts again as the state of the bar asks for. It is called when the pointer and
    /// Notification Center have gone, and in any case two minutes after the pointer left.
    ClockLift(const Platform& platform, BarActivity& activity, RestrictionKeeper& keeper,
              std::function<void()> restore);
    ClockLift(const ClockLift&) = delete;
    ClockLift& operator=(const ClockLift&) = delete;

    /// Where a scan has found clocks; empty when the screens have changed since.
    void setClockRects(std::vector<Rect> rects) { clockRects_ = std::move(rects); }

    /// The bar is hidden or revealed anew: nothing is lifted any longer, nor restored.
    void forget();

  private:
    static constexpr Seconds lookInterval{0.5};
    static constexpr Seconds restoreWaitMax{120};

    void followKeeper();
    void handlePointerLocation(Point pointer);
    std::vector<Rect> clockRects() const;
    void lift();
    void scheduleRestore();
    Task<> restoreWhenGone();

    const Platform& platform_;
    BarActivity& activity_;
    RestrictionKeeper& keeper_;
    std::function<void()> restore_;
    std::vector<Rect> clockRects_;
    Subscription keeperObservation_;
    Subscription pointerMonitor_;
    Job<> restoreTask_;
};

} // namespace tavrin
