#pragma once

#include "base/geometry.h"
#include "platform/status_items.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <set>
#include <string_view>

namespace mac_model {

using MouseButton = StatusItemPress;
inline constexpr std::array<std::string_view, 2> mouseButtonNames{"left", "right"};

struct Pointer {
    Point at;
    bool isVisible = true;
    std::set<MouseButton> buttons; // held down
};

} // namespace mac_model
