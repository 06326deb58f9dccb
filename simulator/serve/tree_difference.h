#pragma once

#include <nlohmann/json.hpp>

namespace mac_model {

/// What has to change to make `after` of `before`, both objects: an empty object when nothing has.
///
/// A difference of an object or an array is an object. Each member names a place, in an array by its index
/// there in `after`: `[value]` puts a value there, `0` takes the member away, and an object is the difference
/// of what is there. Before that, `"splice": [at, removed, [values]]` takes elements out of an array and puts
/// others in. Elements are the same when they have the same "id" or else the same "role" and "text", so that
/// what was only moved or shifted isn't sent again.
nlohmann::json differenceOf(const nlohmann::json& before, const nlohmann::json& after);

} // namespace mac_model
