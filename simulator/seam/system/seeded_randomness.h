#pragma once

#include "platform/randomness.h"

#include <cstdint>

namespace mac_model {

class PreferencesStore;

/// Numbers that look random and are the same for the same seed and the same stored preferences. A Mac that
/// goes on from a profile gives others than the one that left it.
class SeededRandomness final : public tavrin::Randomness {
  public:
    SeededRandomness(std::uint64_t seed, const PreferencesStore&);

    std::uint64_t number() override;

  private:
    std::uint64_t state_;
};

} // namespace mac_model
