#pragma once

#include "accessibility/attributes.h"
#include "concurrency/waits.h"
#include "discovery/hiding_boundary.h"
#include "discovery/scan_result.h"

#include <expected>
#include <span>

namespace tavrin {

/// A way to find the items of other applications in the menu bar. It blocks in messages to other processes:
/// off the main thread.
class BarScan {
  public:
    BarScan() = default;
    virtual ~BarScan() = default;

    /// The items of just these applications. What lies left of the boundary is hidden. The error is that
    /// macOS refuses the messages, so that nothing is known, or that `abandoned` was raised.
    virtual std::expected<ScanResult, ReadFailure>
    scan(std::span<const RunningApplicationSnapshot> applications, const HidingBoundary& boundary,
         const AbandonFlag& abandoned) const = 0;

  protected:
    BarScan(const BarScan&) = default;
    BarScan& operator=(const BarScan&) = default;
};

} // namespace tavrin
