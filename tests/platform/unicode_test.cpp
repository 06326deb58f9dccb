#include "base/unicode.h"

#include <gtest/gtest.h>

namespace tavrin {

TEST(Unicode, TextComesBackWithReplacementsForWhatIsNoCharacter) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"a\u007F\u0080é\u07FF\u0800€\uD7FF\uE000\uFFFF\U00010000😀\U0010FFFF",
         "a\u007F\u0080é\u07FF\u0800€\uD7FF\uE000\uFFFF\U00010000😀\U0010FFFF"},
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
        {"\xC0\xAF", "\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // a surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last character
    };
    for (const auto& [given, expected] : cases) EXPECT_EQ(utf8From(utf16From(given)), expected) << given;
}

TEST(Unicode, SurrogatesPair) {
    using Units = std::vector<std::uint16_t>;
    EXPECT_EQ(utf16From("é😀"), (Units{0xE9, 0xD83D, 0xDE00}));
    EXPECT_EQ(utf8From(Units{0xDE00, 'a', 0xD83D}), "\uFFFDa\uFFFD");
    EXPECT_EQ(utf8From(Units{0xD83D, 0xD83D, 0xDE00}), "\uFFFD😀");
}

} // namespace tavrin
