#pragma once

#include "platform/macos/support/apple.h"

namespace tavrin::macos {

/// Whether no window of this process has the keys. One of a status item may be the key window after a click
/// on it, and takes none. Main thread.
inline bool areKeysFree() {
    NSWindow* key = NSApp.keyWindow;
    return !key || key.level == NSStatusWindowLevel;
}

/// Makes the window key when it is on the screen and no window of this process is key. macOS may not do so by
/// itself for a window that was shown before this process became active. Nil is fine. Main thread.
inline void takeKeysIfFree(NSWindow* window) {
    if (window.visible && areKeysFree()) [window makeKeyWindow];
}

} // namespace tavrin::macos
