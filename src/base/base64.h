#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// RFC 4648 with padding.
std::string base64From(std::span<const std::byte> bytes);

/// None for any character outside the alphabet, line breaks included, and for missing padding. Bits that fill
/// up the last character aren't looked at.
std::optional<std::vector<std::byte>> bytesFromBase64(std::string_view text);

} // namespace tavrin
