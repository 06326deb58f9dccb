#include "base/unicode.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>
#include <unicode/unistr.h>

namespace tavrin {

namespace {

const std::string allLengths = "a\u007F\u0080é\u07FF\u0800€\uD7FF\uE000\uFFFF\U00010000😀\U0010FFFF";

std::string asRead(std::string_view bytes) {
    std::string text;
    for (const auto& character : charactersOf(bytes)) appendCharacter(text, character.value);
    return text;
}

std::string asIcuReadsIt(const std::string& bytes) {
    std::string text;
    return icu::UnicodeString::fromUTF8(bytes).toUTF8String(text);
}

std::string asTheJsonLibraryReadsIt(const std::string& bytes) {
    using nlohmann::json;
    return json::parse(json(bytes).dump(-1, ' ', false, json::error_handler_t::replace)).get<std::string>();
}

} // namespace

TEST(Unicode, textComesBackWithReplacementsForWhatIsNoCharacter) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {allLengths, allLengths},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
        {"a\xff"
         "b\x80",
         "a\uFFFD"
         "b\uFFFD"},
        {"\xC3", "\uFFFD"},
        {"\xE2\x82"
         "a",
         "\uFFFD"
         "a"},
        {"\xF0\x9F\x98", "\uFFFD"},
        {"\xF0\x9F\xF0\x9F\x98\x80", "\uFFFD😀"},         // the next character stays whole
        {"\xC0\xAF", "\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // a surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last character
    };
    for (const auto& [given, expected] : cases) {
        EXPECT_EQ(asRead(given), expected) << given;
        EXPECT_EQ(utf8From(utf16From(given)), expected) << given;
        EXPECT_EQ(isUtf8(given), given == expected) << given;
        EXPECT_EQ(countOfCharacters(given), countOfCharacters(expected)) << given;
    }
}

TEST(Unicode, theLibrariesOfTheModelledMacGiveTheSameAnswer) {
    const std::string_view likely = "a\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC2\xE0\xE2\xED\xF0\xF4\xF5\xFF";
    std::mt19937 draw(20);
    for (int run = 0; run < 3000; ++run) {
        std::string bytes;
        for (auto length = draw() % 9; length > 0; --length) bytes += likely[draw() % likely.size()];
        EXPECT_EQ(asRead(bytes), asIcuReadsIt(bytes)) << run;
        EXPECT_EQ(asRead(bytes), asTheJsonLibraryReadsIt(bytes)) << run;
    }
}

TEST(Unicode, charactersKnowTheirBytes) {
    const std::string text = allLengths + "\xE2\x82" + "z\xFF";
    std::string together;
    for (const auto& character : charactersOf(text)) together += character.bytes;
    EXPECT_EQ(together, text);
    const auto characters = charactersOf("é\xE2\x82z");
    ASSERT_EQ(characters.size(), 3U);
    EXPECT_FALSE(characters[0].isBroken);
    EXPECT_TRUE(characters[1].isBroken);
    EXPECT_EQ(characters[1].bytes, "\xE2\x82");
    EXPECT_FALSE(charactersOf("\uFFFD").front().isBroken); // a replacement that somebody else has made
}

TEST(Unicode, theFrontOfATextPartsNoCharacter) {
    EXPECT_EQ(frontWithin(0, "é"), "");
    EXPECT_EQ(frontWithin(1, "é"), "");
    EXPECT_EQ(frontWithin(4, "aé€z"), "aé");
    EXPECT_EQ(frontWithin(6, "aé€z"), "aé€");
    EXPECT_EQ(frontWithin(99, "aé€z"), "aé€z");
    EXPECT_EQ(frontWithin(2, "\x80\x80\x80"), "\x80\x80");
}

TEST(Unicode, surrogatesPair) {
    using Units = std::vector<std::uint16_t>;
    EXPECT_EQ(utf16From("é😀"), (Units{0xE9, 0xD83D, 0xDE00}));
    EXPECT_EQ(utf8From(Units{0xDE00, 'a', 0xD83D}), "\uFFFDa\uFFFD");
    EXPECT_EQ(utf8From(Units{0xD83D, 0xD83D, 0xDE00}), "\uFFFD😀");
}

} // namespace tavrin
