#pragma once

#include "platform/randomness.h"

namespace tavrin::macos {

class MacRandomness final : public Randomness {
  public:
    std::uint64_t number() override;
};

} // namespace tavrin::macos
