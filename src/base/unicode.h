#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

// The one reader of UTF-8. Reading never fails: bytes that are no UTF-8 are read as U+FFFD, one for each
// longest beginning of a character that was broken off and one for each other stray byte, so that one damaged
// character never takes its neighbours along. ICU, browsers and the modelled Mac's JSON library answer the
// same (a test compares them). Overlong forms, surrogates and values beyond U+10FFFF are no UTF-8. A caller
// that refuses broken text asks `isUtf8` or a character's `isBroken`. Any thread.
// docs/developing.md says why no library does this.

inline constexpr char32_t replacementCharacter = 0xFFFD;

struct Utf8Character {
    char32_t value = replacementCharacter;
    std::string_view bytes; ///< inside the text it was read from
    bool isBroken = false;
};

/// Takes the next character off the front of text that isn't empty.
Utf8Character takeCharacter(std::string_view& utf8);

std::vector<Utf8Character> charactersOf(std::string_view utf8);
std::size_t countOfCharacters(std::string_view utf8);
bool isUtf8(std::string_view text);

/// As much of the text's front as fits into so many bytes without parting a character.
std::string_view frontWithin(std::size_t bytesMax, std::string_view utf8);

void appendCharacter(std::string& utf8, char32_t character);

/// White space and line breaks as macOS counts them (CharacterSet.whitespacesAndNewlines), to which U+200B
/// belongs. All of them take one unit of UTF-16.
bool isWhiteSpaceOnMac(char32_t character);

/// Conversions for systems that keep text as UTF-16. An unpaired surrogate becomes U+FFFD.
std::vector<std::uint16_t> utf16From(std::string_view utf8);
std::string utf8From(std::span<const std::uint16_t> utf16);

} // namespace tavrin
