#include "pins/store/menu_title.h"

#include "base/unicode.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tavrin::MenuTitle {

namespace {

using Units = std::vector<std::uint16_t>;

constexpr std::uint16_t ellipsis = 0x2026;
constexpr std::uint16_t apostrophe = 0x2019;

/// Hyphen, non-breaking hyphen, figure dash, en dash; the em dash divides more than a hyphen does.
bool isHyphen(std::uint16_t unit) { return unit >= 0x2010 && unit <= 0x2013; }

Units trimmed(const Units& title) {
    const auto begin = std::ranges::find_if_not(title, isWhiteSpaceOnMac);
    const auto end =
        std::find_if_not(title.rbegin(), std::make_reverse_iterator(begin), isWhiteSpaceOnMac).base();
    return {begin, end};
}

Units withPlainPunctuation(const Units& title) {
    Units plain;
    for (const auto unit : title) {
        if (unit == ellipsis)
            plain.insert(plain.end(), 3, '.');
        else
            plain.push_back(isHyphen(unit) ? '-' : unit);
    }
    return plain;
}

Units withoutFinalStops(Units title) {
    while (!title.empty() && title.back() == '.') title.pop_back();
    return title;
}

Units withSingleSpaces(const Units& title) {
    Units spaced;
    for (const auto unit : title) {
        if (!isWhiteSpaceOnMac(unit))
            spaced.push_back(unit);
        else if (!spaced.empty() && spaced.back() != ' ')
            spaced.push_back(' ');
    }
    if (!spaced.empty() && spaced.back() == ' ') spaced.pop_back();
    return spaced;
}

} // namespace

bool isBlank(const std::string& title) { return trimmed(utf16From(title)).empty(); }

std::optional<std::string> normalized(const std::optional<std::string>& title, const Text& text) {
    if (!title) return std::nullopt;
    const auto stripped = withoutFinalStops(withPlainPunctuation(trimmed(utf16From(*title))));
    auto folded = utf16From(text.foldingCaseDiacriticsAndWidth(utf8From(stripped)));
    std::ranges::replace(folded, apostrophe, '\'');
    auto result = utf8From(withSingleSpaces(folded));
    return result.empty() ? std::nullopt : std::optional(std::move(result));
}

} // namespace tavrin::MenuTitle
