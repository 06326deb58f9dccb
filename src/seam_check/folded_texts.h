#pragma once

#include <string_view>

namespace tavrin::seam_check {

struct TextCase {
    std::string_view given;
    std::string_view expected;
};

/// Texts, and what folding case, diacritics and width without a locale makes of them on every system. Core
/// Foundation takes marks only off bases below U+0510 (Latin, Greek, Cyrillic): elsewhere they tell words
/// apart. Letters that don't decompose (ø, ł, đ) keep their strokes. Case folds in full, so that ß is ss. Not
/// yet seen on a Mac: ẞ, keycaps, and the half-width voiced marks, which its side maps itself.
inline constexpr TextCase foldedTexts[] = {
    {"", ""},
    {"Quit Éclat", "quit eclat"},
    {"e\u0301\u0323", "e"},
    {"Tiếng Việt, Đặt lại", "tieng viet, đat lai"},
    {"Łódź Ærø", "łodz ærø"},
    {"Straße STRASSE GROẞ", "strasse strasse gross"},
    {"İ I i ı", "i i i ı"}, // Turkish has no rules of its own here, but its dotless i stays another letter
    {"Ωμέγα ΟΔΟΣ οδός", "ωμεγα οδοσ οδοσ"},
    {"Ёлка, Мой", "елка, мои"},
    {"\u212B \u212A", "a k"},             // signs for ångström and kelvin
    {"ＦＩＬＥ　１２３！", "file　123!"}, // a wide space isn't of the block that has widths
    {"ﾌｧｲﾙを開く", "ファイルを開く"},
    {"ｶﾞ ﾊﾟ", "ガ パ"},
    {"か\u3099 が", "が が"},
    {"カ ガ", "カ ガ"},
    {"\u1112\u1161\u11AB 한", "한 한"},
    {"قُرآن", "قُرآن"},
    {"שָׁלוֹם", "שָׁלוֹם"},
    {"น้ำ นำ", "น้ำ นำ"},
    {"हिन्दी", "हिन्दी"},
    {"👍🏽 ☎\uFE0F ☎", "👍🏽 ☎\uFE0F ☎"},
    {"1\uFE0F\u20E3", "1"},
    {"\xFF", "\uFFFD"},
};

} // namespace tavrin::seam_check
