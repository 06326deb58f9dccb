#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about what macOS 27 hides, and about events for other programs.
std::vector<PlantedLie> liesAboutWatching();

} // namespace mac_model
