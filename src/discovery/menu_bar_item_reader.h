#pragma once

#include "concurrency/task.h"
#include "discovery/accessibility_menu_bar_scanner.h"
#include "discovery/menu_bar_item.h"

#include <optional>

namespace tavrin {

class Accessibility;
class SerialQueue;

/// Looks up one item that an earlier scan has found. Main thread; the messages go out on the queue.
class MenuBarItemReader {
  public:
    /// The queue may outlive the reader.
    MenuBarItemReader(Accessibility& accessibility, AccessibilityMenuBarScanner scanner, SerialQueue& queue)
        : accessibility_(accessibility)
        , scanner_(scanner)
        , queue_(queue) {}

    /// Where the item is now; none when it is gone, its owner does not answer, what it says of its place
    /// makes no sense, or the awaiting job is cancelled.
    Task<std::optional<Rect>> currentFrame(MenuBarItemSnapshot item);

  private:
    static std::optional<Rect> read(Accessibility& accessibility, const AccessibilityMenuBarScanner& scanner,
                                    const MenuBarItemSnapshot& item);

    Accessibility& accessibility_;
    AccessibilityMenuBarScanner scanner_;
    SerialQueue& queue_;
};

} // namespace tavrin
