#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// A system that keeps text as UTF-16 meets the program's UTF-8 here. Neither way fails: what is no character
/// becomes U+FFFD, one for each longest beginning of a character that was broken off and one for each other
/// stray byte or unpaired surrogate. Any thread.
std::vector<std::uint16_t> utf16From(std::string_view utf8);
std::string utf8From(std::span<const std::uint16_t> utf16);

} // namespace tavrin
