#pragma once

#include "platform/defaults.h"

#include <string_view>
#include <utility>

namespace tavrin {

/// Stores a choice in Tavrin's own preferences and hands it to the system at once. macOS writes changes late
/// otherwise, and those of a process that crashes before are lost.
inline void storeOwnChoice(Defaults& defaults, std::string_view key, DefaultsValue value) {
    const auto own = defaults.ownDomain();
    defaults.set(own, key, std::move(value));
    defaults.synchronize(own);
}

} // namespace tavrin
