#pragma once

#include "accessibility/ax_messenger.h"
#include "concurrency/task.h"
#include "discovery/accessibility_menu_bar_scanner.h"
#include "discovery/menu_bar_item.h"

#include <optional>

namespace tavrin {

/// Looks up one item that an earlier scan has found. The messages go out on the queue.
class MenuBarItemReader {
  public:
    /// The queue may outlive the reader.
    MenuBarItemReader(Accessibility& accessibility, AccessibilityMenuBarScanner scanner, SerialQueue& queue)
        : messenger_(accessibility, queue)
        , scanner_(scanner) {}

    /// Where the item is now; none when it is gone, its owner does not answer, what it says of its place
    /// makes no sense, or the awaiting job is cancelled.
    Task<std::optional<Rect>> currentFrame(MenuBarItemSnapshot item);

  private:
    AxMessenger messenger_;
    AccessibilityMenuBarScanner scanner_;
};

} // namespace tavrin
