#include "base/unicode.h"

#include <cstddef>

namespace tavrin {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isWithin(char32_t value, char32_t least, char32_t greatest) {
    return value >= least && value <= greatest;
}

/// How a character begins that takes several bytes. The limits of its second byte keep out overlong forms,
/// surrogates and what lies beyond U+10FFFF.
struct Beginning {
    int following = 0; // bytes; 0 for a byte that begins nothing
    char32_t bits = 0;
    char32_t secondLeast = 0x80;
    char32_t secondGreatest = 0xBF;
};

Beginning beginningOf(char32_t byte) {
    if (isWithin(byte, 0xC2, 0xDF)) return {.following = 1, .bits = byte & 0x1F};
    if (isWithin(byte, 0xE0, 0xEF))
        return {2, byte & 0x0F, byte == 0xE0 ? U'\xA0' : U'\x80', byte == 0xED ? U'\x9F' : U'\xBF'};
    if (isWithin(byte, 0xF0, 0xF4))
        return {3, byte & 0x07, byte == 0xF0 ? U'\x90' : U'\x80', byte == 0xF4 ? U'\x8F' : U'\xBF'};
    return {};
}

/// Takes the next character off the front of text that isn't empty.
char32_t takeCharacter(std::string_view& utf8) {
    const auto takeByte = [&utf8] {
        const char32_t byte = static_cast<unsigned char>(utf8.front());
        utf8.remove_prefix(1);
        return byte;
    };
    const auto first = takeByte();
    if (first < 0x80) return first;
    auto [following, value, least, greatest] = beginningOf(first);
    if (following == 0) return replacement;
    for (; following > 0; --following) {
        if (utf8.empty() || !isWithin(static_cast<unsigned char>(utf8.front()), least, greatest))
            return replacement;
        value = value << 6 | (takeByte() & 0x3F);
        least = 0x80;
        greatest = 0xBF;
    }
    return value;
}

bool isHighSurrogate(char32_t unit) { return isWithin(unit, 0xD800, 0xDBFF); }

bool isLowSurrogate(char32_t unit) { return isWithin(unit, 0xDC00, 0xDFFF); }

char32_t takeCharacter(std::span<const std::uint16_t>& utf16) {
    const char32_t first = utf16.front();
    utf16 = utf16.subspan(1);
    if (!isHighSurrogate(first) && !isLowSurrogate(first)) return first;
    if (isLowSurrogate(first) || utf16.empty() || !isLowSurrogate(utf16.front())) return replacement;
    const char32_t second = utf16.front();
    utf16 = utf16.subspan(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

void append(std::vector<std::uint16_t>& utf16, char32_t character) {
    const auto add = [&utf16](char32_t unit) { utf16.push_back(static_cast<std::uint16_t>(unit)); };
    if (character < 0x10000) return add(character);
    add(0xD800 + ((character - 0x10000) >> 10));
    add(0xDC00 + ((character - 0x10000) & 0x3FF));
}

void append(std::string& utf8, char32_t character) {
    const auto add = [&utf8](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    const auto addFollowing = [&](int shift) { add(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        addFollowing(6);
    } else {
        add(0xF0 | character >> 18);
        addFollowing(12);
        addFollowing(6);
    }
    addFollowing(0);
}

} // namespace

std::vector<std::uint16_t> utf16From(std::string_view utf8) {
    std::vector<std::uint16_t> utf16;
    utf16.reserve(utf8.size());
    while (!utf8.empty()) append(utf16, takeCharacter(utf8));
    return utf16;
}

std::string utf8From(std::span<const std::uint16_t> utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    while (!utf16.empty()) append(utf8, takeCharacter(utf16));
    return utf8;
}

} // namespace tavrin
