#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "vocabulary/vocabulary.h"

#include <nlohmann/json.hpp>

namespace mac_model {

// The shapes in which replies give numbers: seconds, whole ones without a fraction, frames as [x, y, width,
// height].

nlohmann::json number(double);
nlohmann::json timeShape(Seconds); // to the nanosecond
nlohmann::json pointShape(Point);
nlohmann::json frameShape(Rect);

} // namespace mac_model
