#include "driver/json_shapes.h"

#include <cmath>
#include <cstdint>

namespace mac_model {

namespace {

constexpr double wholeMax = 1e15; // beyond it a double no longer holds every whole number

} // namespace

nlohmann::json number(double value) {
    const bool isWhole = std::abs(value) < wholeMax && std::trunc(value) == value;
    return isWhole ? nlohmann::json(static_cast<std::int64_t>(value)) : nlohmann::json(value);
}

nlohmann::json timeShape(Seconds time) { return std::round(time.count() * 1e9) / 1e9; }

nlohmann::json pointShape(Point point) { return {number(point.x), number(point.y)}; }

nlohmann::json frameShape(Rect frame) {
    return {number(frame.x), number(frame.y), number(frame.width), number(frame.height)};
}

} // namespace mac_model
