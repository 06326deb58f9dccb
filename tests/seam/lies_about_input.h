#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about events, hot keys and keys.
std::vector<PlantedLie> liesAboutInput();

} // namespace mac_model
