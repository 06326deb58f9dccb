#include "seam/system/seeded_randomness.h"

#include "preferences/preferences_store.h"

#include <nlohmann/json.hpp>
#include <string_view>

namespace mac_model {

namespace {

using nlohmann::json;

constexpr std::uint64_t fnvBasis = 0xCBF29CE484222325;
constexpr std::uint64_t fnvPrime = 0x100000001B3;

std::uint64_t digest(std::uint64_t start, std::string_view text) {
    for (const char byte : text) start = (start ^ static_cast<unsigned char>(byte)) * fnvPrime;
    return start;
}

} // namespace

SeededRandomness::SeededRandomness(std::uint64_t seed, const PreferencesStore& preferences)
    : state_(fnvBasis ^ seed) {
    for (const auto& domain : preferences.domains())
        state_ = digest(digest(state_, domain.name),
                        preferences.describe(domain).dump(-1, ' ', false, json::error_handler_t::replace));
}

/// SplitMix64.
std::uint64_t SeededRandomness::number() {
    auto mixed = state_ += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
}

} // namespace mac_model
