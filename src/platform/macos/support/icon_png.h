#pragma once

#include "platform/macos/support/apple.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavrin::macos {

/// The image as a PNG of 32 × 32 pixels for 16 × 16 points; none for nil.
std::optional<std::vector<std::byte>> iconPng(NSImage* icon);

} // namespace tavrin::macos
