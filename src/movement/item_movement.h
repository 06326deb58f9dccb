#pragma once

#include "discovery/menu_bar_item_reader.h"
#include "gestures/window_server_status_item_bridge.h"
#include "movement/menu_bar_item_mover.h"
#include "platform/platform.h"

#include <memory>

namespace tavrin {

/// The parts that move one item and look where it has gone. They ask applications on a queue of their own.
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
