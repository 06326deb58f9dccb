#pragma once

#include <cstdint>

namespace tavrin {

/// The system's source of numbers that nobody can foresee. Any thread.
class Randomness {
  public:
    virtual ~Randomness() = default;

    /// Each value is as likely as any other.
    virtual std::uint64_t number() = 0;
};

} // namespace tavrin
