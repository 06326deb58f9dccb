#pragma once

#include "platform/randomness.h"

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// An identity that stays unique without anybody handing out numbers.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A random one (version 4).
    static Uuid create(Randomness&);

    /// Reads 32 hexadecimal digits of either case in groups of 8, 4, 4, 4 and 12 with hyphens between them;
    /// none for anything else.
    static std::optional<Uuid> from(std::string_view text);

    /// The canonical form: "E621E1F8-C36C-495A-93FC-0C247A3E6E5F".
    std::string text() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace tavrin
