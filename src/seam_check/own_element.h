#pragma once

#include "base/geometry.h"
#include "concurrency/task.h"
#include "platform/accessibility.h"
#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::seam_check {

/// This process's own item with that label, as Accessibility has it; none when it isn't found there. Takes no
/// permission.
Task<std::optional<AccessibilityElement>> ownItemElement(Platform platform, std::string label);

/// Whether the attribute is a text that contains this one.
Task<bool> tells(Platform platform, AccessibilityElement element, std::string_view attribute,
                 std::string text);

/// Where the element is; none when it doesn't tell.
Task<std::optional<Rect>> frameOf(Platform platform, AccessibilityElement element);

/// Each message to the element may take this long.
inline constexpr Seconds ownMessageTimeMax{2};

} // namespace tavrin::seam_check
