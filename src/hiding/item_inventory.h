#pragma once

#include "accessibility/accessibility_permission.h"
#include "concurrency/job.h"
#include "discovery/accessibility_menu_bar_scanner.h"
#include "hiding/menu_bar_state.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"

#include <memory>
#include <vector>

namespace tavrin {

/// Keeps the list of detected items: scans on a queue of its own, one scan at a time. Main thread.
class ItemInventory {
  public:
    ItemInventory(const Platform& platform, MenuBarState& state, AccessibilityPermission& permission,
                  const OwnStatusItems& ownItems);
    ItemInventory(const ItemInventory&) = delete;
    ItemInventory& operator=(const ItemInventory&) = delete;

    /// Returns when a scan that began after this call has ended; without Accessibility trust at once, with
    /// the list emptied.
    Task<> refreshItemsNow();

    /// The same for a caller that does not wait.
    void refreshItems();

    /// Forgets the last scan.
    void invalidate();

  private:
    Task<> scanUntilCurrent();
    Task<> scanOnce();
    Task<> refreshInBackground();
    std::vector<RunningApplicationSnapshot> applicationsToScan() const;
    void publish(std::vector<MenuBarItemSnapshot> snapshots);

    const Platform& platform_;
    MenuBarState& state_;
    AccessibilityPermission& permission_;
    const OwnStatusItems& ownItems_;
    AccessibilityMenuBarScanner scanner_;
    bool needsRescan_ = false;
    std::unique_ptr<SerialQueue> queue_;
    Job<> scanTask_;
    Job<> refreshTask_;
};

} // namespace tavrin
