#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about popovers, windows, panels and alerts.
std::vector<PlantedLie> liesAboutWindows();

} // namespace mac_model
