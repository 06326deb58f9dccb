#pragma once

#include "platform/hot_keys.h"

#include <functional>
#include <string>

namespace tavrin::seam_check {

/// What some checks need beside the platform, which Tavrin itself has no use for. Without it they stay
/// untried.
struct Surroundings {
    /// Whether another process of this program finds the text under `keptKey` of `scratchDomain`. Blocks:
    /// not for the main thread.
    std::function<bool(const std::string& text)> isFoundElsewhere;

    /// Presses a key with modifiers held, as a keyboard would. Takes the same permission as mouse events.
    std::function<void(KeyCode, CarbonModifiers)> pressKey;
};

/// The preferences domain of the checks. It is empty at first and at the end.
inline constexpr auto scratchDomain = "org.tavrin.seam-check.scratch";
inline constexpr auto keptKey = "kept";

} // namespace tavrin::seam_check
