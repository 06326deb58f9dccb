#pragma once

#include "platform/workspace.h"

namespace tavrin {

/// How Tavrin hides, fixed for the life of the process: with a long spacer item, or by telling macOS what to
/// show.
enum class MenuBarRuntimeMode { divider, nativeVisibility };

/// macOS 27 and later take a list of the items to show; there is no spacer then.
inline MenuBarRuntimeMode runtimeMode(OperatingSystemVersion version) {
    return version.major > 26 ? MenuBarRuntimeMode::nativeVisibility : MenuBarRuntimeMode::divider;
}

} // namespace tavrin
