#pragma once

#include "platform/text.h"

#include <optional>
#include <string>

/// Titles of menu items as people tell them apart. All comparisons of menu titles and of status items' labels
/// compare normalized forms.
namespace tavrin::MenuTitle {

/// Whether there is nothing to be seen: it is empty, or all white space.
bool isBlank(const std::string& title);

/// The title without differences of case, diacritics, width, white space, kinds of hyphen and of a final
/// ellipsis; none when nothing is left. An em dash stays one. Any thread.
std::optional<std::string> normalized(const std::optional<std::string>& title, const Text& text);

} // namespace tavrin::MenuTitle
