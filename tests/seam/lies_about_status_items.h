#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about screens, the menu bar's windows and status items.
std::vector<PlantedLie> liesAboutStatusItems();

} // namespace mac_model
