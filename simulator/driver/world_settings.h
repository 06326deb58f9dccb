#pragma once

#include "driver/arguments.h"
#include "mac/mac.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

namespace mac_model {

/// A change that has passed all checks.
using Change = std::function<void()>;

struct World {
    Mac& mac;
};

/// One key of the command "set".
struct WorldSetting {
    std::string_view key;
    /// Checks the value and returns the change; after a fault the change must not be used.
    Change (*prepare)(World, const nlohmann::json& value, const std::string& pointer, FirstFault&);
};

/// In the order in which the changes of one command happen.
std::span<const WorldSetting> worldSettings();

} // namespace mac_model
