#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about texts and preferences.
std::vector<PlantedLie> liesAboutStoredThings();

} // namespace mac_model
