#pragma once

#include "seam/planted_lie.h"

#include <vector>

namespace mac_model {

/// Lies about the order of work, timers and queues.
std::vector<PlantedLie> liesAboutTime();

} // namespace mac_model
