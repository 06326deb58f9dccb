#pragma once

#include "menu_bar/status_item_record.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <optional>
#include <string_view>

namespace mac_model {

/// The number under which macOS 27 knows an extra of its own; none for items of applications. Control
/// Center's extras without a number of their own share one.
inline std::optional<int> systemItemNumber(const StatusItemRecord& record, const ApplicationSpec& owner) {
    constexpr std::array<std::string_view, 9> numbered{"battery", "bluetooth",          "clock",
                                                       "display", "keyboardbrightness", "sound",
                                                       "wifi",    "screenmirroring",    "controlcenter"};
    constexpr int anyOther = 200;
    if (owner.bundleIdentifier != "com.apple.controlcenter") return std::nullopt;
    for (std::size_t number = 0; number < numbered.size(); ++number)
        if (record.spec.identifier == "com.apple.menuextra." + std::string(numbered[number]))
            return static_cast<int>(number);
    return anyOther;
}

} // namespace mac_model
