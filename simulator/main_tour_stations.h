#pragma once

#include "terminal/tour.h"

#include <string>
#include <vector>

namespace mac_model {

/// From the first start of the program to the evening, when the Mac is switched off.
std::vector<TourStep> firstDay(const std::string& bundleIdentifier);

/// On the same Mac, switched on again.
std::vector<TourStep> nextMorning(const std::string& bundleIdentifier);

} // namespace mac_model
