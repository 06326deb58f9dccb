#pragma once

#include "platform/defaults.h"
#include "vocabulary/vocabulary.h"

#include <nlohmann/json.hpp>
#include <optional>

namespace mac_model {

// Preferences values as JSON that keeps their kind: true, 1, 1.0, "text", [...] and {...} are themselves.
// Bytes are {"$data": base64}, reals that are no finite number {"$real": "nan"}, text that is no UTF-8
// {"$bytes": base64}, and a dictionary with a key that begins with "$" is {"$dictionary": {...}}.

nlohmann::json toJson(const DefaultsValue&);
nlohmann::json toJson(const tavrin::DefaultsDictionary&);

/// None for null and for anything that the rules above don't allow.
std::optional<DefaultsValue> defaultsValue(const nlohmann::json&);

} // namespace mac_model
