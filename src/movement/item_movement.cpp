#include "movement/item_movement.h"

#include "concurrency/scheduler.h"
#include "discovery/accessibility_menu_bar_scanner.h"

namespace tavrin {

ItemMovement::ItemMovement(const Platform& platform)
    : queue_(platform.scheduler.makeSerialQueue("tavrin.item"))
    , reader_(platform.accessibility,
              AccessibilityMenuBarScanner(platform.scheduler, platform.accessibility, platform.defaults,
                                          platform.workspace, platform.text),
              *queue_)
    , bridge_(platform.events, platform.windowServer)
    , mover_(platform.events, platform.accessibility, reader_, bridge_) {}

} // namespace tavrin
