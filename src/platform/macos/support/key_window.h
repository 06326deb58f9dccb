#pragma once

#include "platform/macos/support/apple.h"

namespace tavrin::macos {

/// Makes the window key when it is on the screen and no window of this process is key. macOS may not do so by
/// itself for a window that was shown before this process became active. Nil is fine. Main thread.
inline void takeKeysIfFree(NSWindow* window) {
    if (window.visible && !NSApp.keyWindow) [window makeKeyWindow];
}

} // namespace tavrin::macos
