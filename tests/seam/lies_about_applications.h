#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about other applications, this one, and starting at login.
std::vector<PlantedLie> liesAboutApplications();

} // namespace mac_model
