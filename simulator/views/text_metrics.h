#pragma once

#include "views/view.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

// Sizes of text as a sans serif system font draws it, near enough that a page which draws at these places has
// neither cut words nor wide gaps. Points; text is UTF-8, read as base/unicode.h says.

double fontSizeOf(TextStyle);
double lineHeightOf(TextStyle);

/// The width of text on one line.
double widthOf(std::string_view text, TextStyle);

/// Breaks at line breaks, between words, and inside a word only when it is wider than a line. There is always
/// at least one line.
std::vector<std::string> wrapped(std::string_view text, TextStyle, double width);

} // namespace mac_model
