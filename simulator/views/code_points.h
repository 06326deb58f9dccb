#pragma once

namespace mac_model {

/// Ideographs, kana, Hangul, emoji: two columns of a terminal, an em of a font.
bool isWide(char32_t);

/// Combining marks, joiners and variation selectors.
bool isZeroWidth(char32_t);

} // namespace mac_model
