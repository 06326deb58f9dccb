#include "views/code_points.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mac_model {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 11> wideRanges{{{0x1100, 0x115F},
                                            {0x2E80, 0xA4CF},
                                            {0xAC00, 0xD7A3},
                                            {0xF900, 0xFAFF},
                                            {0xFE30, 0xFE6F},
                                            {0xFF00, 0xFF60},
                                            {0xFFE0, 0xFFE6},
                                            {0x1F1E6, 0x1F1FF},
                                            {0x1F300, 0x1F64F},
                                            {0x1F680, 0x1FAFF},
                                            {0x20000, 0x3FFFD}}};

constexpr std::array<Range, 6> zeroWidthRanges{{{0x0300, 0x036F},
                                                {0x200B, 0x200F},
                                                {0x20D0, 0x20FF},
                                                {0xFE00, 0xFE0F},
                                                {0x1F3FB, 0x1F3FF},
                                                {0xE0100, 0xE01EF}}};

bool isIn(const auto& ranges, char32_t value) {
    return std::ranges::any_of(ranges, [value](Range r) { return value >= r.first && value <= r.last; });
}

std::size_t lengthAnnouncedBy(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isOverlongOrSurrogate(char32_t value, std::size_t length) {
    return (length == 3 && value < 0x800) || (length == 4 && value < 0x10000) || value > 0x10FFFF ||
           (value >= 0xD800 && value <= 0xDFFF);
}

CodePoint readOne(std::string_view text) {
    const CodePoint broken{0xFFFD, text.substr(0, 1)};
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lengthAnnouncedBy(lead);
    if (length == 0 || length > text.size()) return broken;
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return broken;
        value = value << 6 | (byte & 0x3FU);
    }
    if (isOverlongOrSurrogate(value, length)) return broken;
    return {value, text.substr(0, length)};
}

} // namespace

std::vector<CodePoint> codePointsOf(std::string_view text) {
    std::vector<CodePoint> characters;
    characters.reserve(text.size());
    while (!text.empty()) {
        characters.push_back(readOne(text));
        text.remove_prefix(characters.back().bytes.size());
    }
    return characters;
}

bool isWide(char32_t value) { return isIn(wideRanges, value); }

bool isZeroWidth(char32_t value) { return isIn(zeroWidthRanges, value); }

} // namespace mac_model
