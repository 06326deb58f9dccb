#pragma once

#include "platform/window_server.h"
#include "platform/workspace.h"

namespace tavrin {

/// Whether Notification Center is open: its process has a window higher than any notice.
bool isNotificationCenterPresented(const Workspace& workspace, const WindowServer& windows);

} // namespace tavrin
