#include "base/base64.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tavrin {

namespace {

std::vector<std::byte> bytesOf(std::string_view text) {
    std::vector<std::byte> bytes(text.size());
    std::ranges::transform(text, bytes.begin(), [](char c) { return static_cast<std::byte>(c); });
    return bytes;
}

} // namespace

TEST(Base64, isThatOfTheStandard) {
    const std::pair<std::string_view, std::string_view> cases[] = {{"", ""},
                                                                   {"f", "Zg=="},
                                                                   {"fo", "Zm8="},
                                                                   {"foo", "Zm9v"},
                                                                   {"foob", "Zm9vYg=="},
                                                                   {"foobar", "Zm9vYmFy"},
                                                                   {"\xFB\xEF\xFF", "++//"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(base64From(bytesOf(bytes)), text);
        EXPECT_EQ(bytesFromBase64(text), bytesOf(bytes)) << text;
    }
}

TEST(Base64, anythingElseIsRefused) {
    for (const auto* text :
         {"Z", "Zg", "Zg=", "Zg===", "====", "Zg==Zg==", "Zm9v\n", "Zm_v", "Zm9\xC3", "=Zm9"})
        EXPECT_FALSE(bytesFromBase64(text)) << text;
}

} // namespace tavrin
