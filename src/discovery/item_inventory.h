#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "discovery/bar_scan.h"
#include "discovery/menu_bar_item.h"
#include "discovery/scan_result.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavrin {

/// Keeps the list of other applications' items: scans on a queue of its own, one scan at a time. The list is
/// void once Accessibility trust is lost.
class ItemInventory {
  public:
    /// `boundary` tells which items count as hidden; it is asked as each scan begins.
    ItemInventory(const Platform& platform, AccessibilityPermission& permission,
                  std::unique_ptr<BarScan> scan, std::function<HidingBoundary()> boundary);
    ItemInventory(const ItemInventory&) = delete;
    ItemInventory& operator=(const ItemInventory&) = delete;

    /// The items that the last scan found, in its order.
    const Published<std::vector<MenuBarItem>>& items() const { return items_; }

    const Published<bool>& isScanning() const { return isScanning_; }

    /// Whether a scan has finished with Accessibility trust and nothing has made it void since.
    bool hasCompletedScan() const { return hasCompletedScan_; }

    /// Fires at the end of every scan, also of one that found what was known, or was denied. `items` is up to
    /// date by then; a denied scan leaves them as they were.
    Subscription onScanCompleted(std::function<void(const ScanResult&)> handler) {
        return scanCompleted_.subscribe(std::move(handler));
    }

    /// Returns when a scan that began after this call has ended; without Accessibility trust at once.
    Task<> refreshItemsNow();

  private:
    Task<> scanUntilCurrent();
    Task<> scanOnce();
    bool isDenied();
    void invalidate();
    std::vector<RunningApplicationSnapshot> applicationsToScan() const;
    void publish(ScanResult result);
    void tellOfDenial();

    const Platform& platform_;
    AccessibilityPermission& permission_;
    std::function<HidingBoundary()> boundary_;
    std::unique_ptr<BarScan> scan_; // outlives the queue, which uses it
    Published<std::vector<MenuBarItem>> items_;
    Published<bool> isScanning_{false};
    bool hasCompletedScan_ = false;
    Signal<ScanResult> scanCompleted_;
    Subscription permissionObservation_;
    bool needsRescan_ = false;
    std::unique_ptr<SerialQueue> queue_;
    Job<> scanTask_;
};

} // namespace tavrin
