#pragma once

#include "concurrency/scheduler.h"
#include "platform/platform.h"

namespace tavrin {

/// What those need that drive other applications' menus: messages go out on the queue, one piece of work at
/// a time, and everything else happens on the main thread. Both outlive whoever has it.
struct MenuAccess {
    const Platform& platform;
    SerialQueue& queue;

    /// How often something that another application is about to do is looked for.
    static constexpr Seconds pollInterval{0.04};
    /// How long a menu has to go away.
    static constexpr Seconds closingTime{0.4};
    /// How long a submenu has to show what it holds.
    static constexpr Seconds submenuOpeningTime{1.2};
};

} // namespace tavrin
