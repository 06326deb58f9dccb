#pragma once

#include "mac/mac.h"
#include "mac/screen_content.h"

#include <nlohmann/json.hpp>

namespace mac_model {

/// Everything that a person could see: the reply to "look".
nlohmann::json lookAt(Mac&, const ScreenContent&);

} // namespace mac_model
