#pragma once

#include "platform/macos/input/event_monitors.h"
#include "platform/macos/input/events.h"
#include "platform/macos/input/hot_keys.h"
#include "platform/macos/input/keyboard.h"
#include "platform/macos/presentation/presentation.h"
#include "platform/macos/presentation/status_items.h"
#include "platform/macos/system/accessibility.h"
#include "platform/macos/system/application.h"
#include "platform/macos/system/defaults.h"
#include "platform/macos/system/login_item.h"
#include "platform/macos/system/randomness.h"
#include "platform/macos/system/scheduler.h"
#include "platform/macos/system/screens.h"
#include "platform/macos/system/text.h"
#include "platform/macos/system/visibility_service.h"
#include "platform/macos/system/window_server.h"
#include "platform/macos/system/workspace.h"
#include "platform/platform.h"

namespace tavrin::macos {

/// The real Mac. Made on the main thread once NSApplication is there. Faults of the program's work are
/// written to the system log.
class MacPlatform {
  public:
    MacPlatform();
    MacPlatform(const MacPlatform&) = delete;
    MacPlatform& operator=(const MacPlatform&) = delete;

    Platform platform();

  private:
    MacScheduler scheduler_;
    MacApplication application_{scheduler_};
    MacAccessibility accessibility_{scheduler_};
    MacDefaults defaults_;
    MacEventMonitors eventMonitors_{scheduler_};
    MacEvents events_;
    MacHotKeys hotKeys_{scheduler_};
    MacKeyboard keyboard_{scheduler_};
    MacLoginItem loginItem_;
    MacPresentation presentation_{scheduler_};
    MacRandomness randomness_;
    MacScreens screens_{scheduler_};
    MacStatusItems statusItems_{scheduler_};
    MacText text_;
    MacVisibilityService visibilityService_;
    MacWindowServer windowServer_;
    MacWorkspace workspace_{scheduler_};
};

} // namespace tavrin::macos
