#pragma once

#include "concurrency/signal.h"
#include "core/bar_readings.h"
#include "platform/application.h"

namespace tavrin {

/// Has assistive technology say what a sighted user sees come up in the configure window: failures, and how
/// far an apply has got. Main thread.
class Announcements {
  public:
    /// Both outlive this object.
    Announcements(Application& application, const BarReadings& readings);

  private:
    Subscription failures_;
    Subscription progress_;
};

} // namespace tavrin
