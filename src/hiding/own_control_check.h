#pragma once

#include "concurrency/job.h"
#include "hiding/own_status_items.h"

#include <functional>
#include <string>
#include <utility>

namespace tavrin {

/// Looks after a hide whether macOS still draws Tavrin's control, without which nobody could reveal anything.
/// Main thread.
class OwnControlCheck {
  public:
    /// Restores the full menu bar and tells the user why.
    using Restore = std::function<void(std::string message)>;

    /// Another sign that the control has gone, asked when it isn't drawn. It is let off when that says no.
    using SecondSign = std::function<Task<bool>()>;

    OwnControlCheck(Scheduler& scheduler, OwnStatusItems& items, SecondSign secondSign = {});

    /// Calls `restore` when macOS has stopped drawing the control; when the menu bar isn't visible, not
    /// before it is again. A later call, and `abandon`, make an earlier one void.
    void verify(Restore restore);

    void abandon();

  private:
    static constexpr Seconds delay{0.5};

    Task<> look();
    void lookIfPostponed();

    Scheduler& scheduler_;
    OwnStatusItems& items_;
    SecondSign secondSign_;
    Restore restore_;
    bool isPostponed_ = false;
    Job<> task_;
    Subscription sightObservation_;
};

} // namespace tavrin
