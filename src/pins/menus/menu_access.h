#pragma once

#include "accessibility/ax_messenger.h"
#include "concurrency/scheduler.h"
#include "platform/platform.h"

namespace tavrin {

/// The way to other applications' menus: messages go out by the messenger, and everything else happens on the
/// main thread. The platform outlives it.
struct MenuAccess {
    const Platform& platform;
    AxMessenger messenger;

    /// Bounds each message to an application.
    static constexpr Seconds messagingTimeout{1};
    static constexpr Seconds messagingTimeoutWhileOpening{0.25};

    /// How often something that another application is about to do is looked for.
    static constexpr Seconds pollInterval{0.04};
    /// How long a menu has to go away.
    static constexpr Seconds closingTime{0.4};
    /// How long a submenu has to show what it holds.
    static constexpr Seconds submenuOpeningTime{1.2};
};

} // namespace tavrin
