#pragma once

#include <string_view>
#include <vector>

namespace mac_model {

struct CodePoint {
    char32_t value;
    std::string_view bytes; // inside the text it was read from
};

/// The characters of UTF-8 text. Each byte that is not UTF-8 is a U+FFFD of its own.
std::vector<CodePoint> codePointsOf(std::string_view text);

/// Ideographs, kana, Hangul, emoji: two columns of a terminal, an em of a font.
bool isWide(char32_t);

/// Combining marks, joiners and variation selectors.
bool isZeroWidth(char32_t);

} // namespace mac_model
