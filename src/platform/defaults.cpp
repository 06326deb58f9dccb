#include "platform/defaults.h"

#include <cmath>

namespace tavrin {

std::optional<double> numberIn(const std::optional<DefaultsValue>& stored) {
    if (!stored) return std::nullopt;
    if (const auto* real = std::get_if<double>(&stored->value); real && std::isfinite(*real)) return *real;
    if (const auto* integer = std::get_if<std::int64_t>(&stored->value)) return static_cast<double>(*integer);
    return std::nullopt;
}

bool isFalse(const DefaultsValue& value) {
    if (const auto* boolean = std::get_if<bool>(&value.value)) return !*boolean;
    return numberIn(value) == 0.0;
}

} // namespace tavrin
