#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace mac_model {

/// Everything open on the screen that the reply to "look" tells of, from front to back, for a terminal; empty
/// when nothing is open.
std::string describeSurfaces(const nlohmann::json& look);

} // namespace mac_model
