#pragma once

#include "accessibility/ax_messenger.h"
#include "concurrency/scheduler.h"
#include "platform/platform.h"

namespace tavrin {

/// Reaches other applications' menus: the messenger sends the messages, and everything else happens on the
/// main thread. The platform outlives it.
struct MenuAccess {
    const Platform& platform;
    AxMessenger messenger;

    /// Bounds each message to an application.
    static constexpr Seconds messagingTimeout{1};
    static constexpr Seconds messagingTimeoutWhileOpening{0.25};

    /// The time between two looks for something that another application is about to do.
    static constexpr Seconds pollInterval{0.04};
    /// The time that a menu has to go away.
    static constexpr Seconds closingTime{0.4};
    /// The time that a submenu has to show its items.
    static constexpr Seconds submenuOpeningTime{1.2};
};

} // namespace tavrin
