#pragma once

#include "discovery/menu_bar_item_reader.h"
#include "gestures/window_server_status_item_bridge.h"
#include "movement/menu_bar_item_mover.h"
#include "platform/platform.h"

#include <memory>

namespace tavrin {

/// All that it takes to move one item and to look where it has gone. Main thread; applications are asked on a
/// queue of its own.
class ItemMovement {
  public:
    explicit ItemMovement(const Platform& platform);
    ItemMovement(const ItemMovement&) = delete;
    ItemMovement& operator=(const ItemMovement&) = delete;

    MenuBarItemReader& reader() { return reader_; }

    MenuBarItemMover& mover() { return mover_; }

  private:
    std::unique_ptr<SerialQueue> queue_;
    MenuBarItemReader reader_;
    WindowServerStatusItemBridge bridge_;
    MenuBarItemMover mover_;
};

} // namespace tavrin
