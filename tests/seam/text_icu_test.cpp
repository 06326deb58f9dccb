#include "seam/system/text_icu.h"

#include <gtest/gtest.h>

namespace mac_model {

TEST(IcuText, followsTheSystemsRules) {
    const auto text = makeIcuText();
    const auto compare = [&](auto left, auto right) { return text->compareIgnoringCase(left, right); };
    EXPECT_EQ(compare("wi-fi", "WI-FI"), std::strong_ordering::equal);
    EXPECT_EQ(compare("résumé", "resume"), std::strong_ordering::greater) << "accents count";
    EXPECT_EQ(compare("Äpfel", "Zebra"), std::strong_ordering::less);
    EXPECT_EQ(text->foldingCaseAndDiacritics("Ünïcode STRASSE ß"), "unicode strasse ss");
    EXPECT_EQ(text->lowercased("ÀÉ"), "àé");
    EXPECT_EQ(text->capitalized("hELLO wi-fi"), "Hello Wi-Fi");
    EXPECT_EQ(text->keepingAlphanumerics("a-b_c 1½é\u0301!"), "abc1½é\u0301");
    EXPECT_EQ(text->trimmed("\t\u00A0\u2003 a b \n\u2028"), "a b");
    EXPECT_EQ(text->trimmed(" \n"), "");
    EXPECT_EQ(text->trimmed("\u200B\u180Ea\u200Bb\u200B "), "\u180Ea\u200Bb");
    EXPECT_EQ(text->lowercased("A\xff"), "a\uFFFD");
}

} // namespace mac_model
