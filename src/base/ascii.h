#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tavrin {

/// Only A to Z have another letter case: for identifiers and other text that no language changes. Any thread.
constexpr char lowercasedAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

inline std::string lowercasedAscii(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char character) { return lowercasedAscii(character); });
    return lower;
}

} // namespace tavrin
