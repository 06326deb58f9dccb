#include "views/code_points.h"

#include <algorithm>
#include <array>

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

} // namespace

bool isWide(char32_t value) { return isIn(wideRanges, value); }

bool isZeroWidth(char32_t value) { return isIn(zeroWidthRanges, value); }

} // namespace mac_model
