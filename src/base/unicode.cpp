#include "base/unicode.h"

namespace tavrin {

namespace {

bool isWithin(char32_t value, char32_t least, char32_t greatest) {
    return value >= least && value <= greatest;
}

/// The first byte of a character that takes several, and what may follow it. The limits of its second byte
/// keep out overlong forms, surrogates and what lies beyond U+10FFFF.
struct Beginning {
    std::size_t following = 0; // bytes; 0 for a byte that begins nothing
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

/// Reads the character whose first byte is no ASCII.
Utf8Character longCharacterAt(std::string_view utf8) {
    const auto byteAt = [utf8](std::size_t i) -> char32_t { return static_cast<unsigned char>(utf8[i]); };
    const auto beginning = beginningOf(byteAt(0));
    auto value = beginning.bits;
    auto least = beginning.secondLeast;
    auto greatest = beginning.secondGreatest;
    std::size_t length = 1;
    for (; length <= beginning.following; ++length, least = 0x80, greatest = 0xBF) {
        if (length == utf8.size() || !isWithin(byteAt(length), least, greatest)) break;
        value = value << 6 | (byteAt(length) & 0x3F);
    }
    const bool isBroken = beginning.following == 0 || length <= beginning.following;
    return {isBroken ? replacementCharacter : value, utf8.substr(0, length), isBroken};
}

bool isHighSurrogate(char32_t unit) { return isWithin(unit, 0xD800, 0xDBFF); }

bool isLowSurrogate(char32_t unit) { return isWithin(unit, 0xDC00, 0xDFFF); }

char32_t takeUnits(std::span<const std::uint16_t>& utf16) {
    const char32_t first = utf16.front();
    utf16 = utf16.subspan(1);
    if (!isHighSurrogate(first) && !isLowSurrogate(first)) return first;
    if (isLowSurrogate(first) || utf16.empty() || !isLowSurrogate(utf16.front())) return replacementCharacter;
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

} // namespace

Utf8Character takeCharacter(std::string_view& utf8) {
    const auto first = static_cast<unsigned char>(utf8.front());
    const auto character = first < 0x80 ? Utf8Character{first, utf8.substr(0, 1)} : longCharacterAt(utf8);
    utf8.remove_prefix(character.bytes.size());
    return character;
}

std::vector<Utf8Character> charactersOf(std::string_view utf8) {
    std::vector<Utf8Character> characters;
    characters.reserve(utf8.size());
    while (!utf8.empty()) characters.push_back(takeCharacter(utf8));
    return characters;
}

std::size_t countOfCharacters(std::string_view utf8) {
    std::size_t count = 0;
    for (; !utf8.empty(); ++count) takeCharacter(utf8);
    return count;
}

bool isUtf8(std::string_view text) {
    while (!text.empty())
        if (takeCharacter(text).isBroken) return false;
    return true;
}

std::string_view frontWithin(std::size_t bytesMax, std::string_view utf8) {
    auto rest = utf8;
    std::size_t length = 0;
    while (!rest.empty()) {
        const auto longer = length + takeCharacter(rest).bytes.size();
        if (longer > bytesMax) break;
        length = longer;
    }
    return utf8.substr(0, length);
}

void appendCharacter(std::string& utf8, char32_t character) {
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

bool isWhiteSpaceOnMac(char32_t character) {
    return isWithin(character, 0x09, 0x0D) || character == 0x20 || character == 0x85 || character == 0xA0 ||
           character == 0x1680 || isWithin(character, 0x2000, 0x200B) || character == 0x2028 ||
           character == 0x2029 || character == 0x202F || character == 0x205F || character == 0x3000;
}

std::vector<std::uint16_t> utf16From(std::string_view utf8) {
    std::vector<std::uint16_t> utf16;
    utf16.reserve(utf8.size());
    while (!utf8.empty()) append(utf16, takeCharacter(utf8).value);
    return utf16;
}

std::string utf8From(std::span<const std::uint16_t> utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    while (!utf16.empty()) appendCharacter(utf8, takeUnits(utf16));
    return utf8;
}

} // namespace tavrin
