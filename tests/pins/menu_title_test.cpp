#include "pins/store/menu_title.h"
#include "seam/system/text_icu.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tavrin {

namespace {

const auto text = mac_model::makeIcuText();

std::optional<std::string> normalized(const std::optional<std::string>& title) {
    return MenuTitle::normalized(title, *text);
}

enum class Titles { Same, Different };

struct TitlePair {
    const char* left;
    const char* right;
    Titles expected;
};

constexpr TitlePair pairs[] = {
    {"Export…", "export", Titles::Same},
    {"Export…", "Export...", Titles::Same},
    {"Export….", "Export", Titles::Same},
    {"3.5 mm", "35 mm", Titles::Different},
    {"…more", "...more", Titles::Same},
    {"  Show\tAll \n Windows ", "show all windows", Titles::Same},
    {"Show\u00A0All", "Show All", Titles::Same},
    {"ShowAll", "Show All", Titles::Different},
    {"Wi\u2011Fi", "wi-fi", Titles::Same},
    {"A–B", "A-B", Titles::Same},
    {"A\u2012B", "A\u2010B", Titles::Same},
    {"A—B", "A-B", Titles::Different},
    {"Don’t Save", "Don't Save", Titles::Same},
    {"Don‘t Save", "Don't Save", Titles::Different},
    {"Save As", "Save", Titles::Different},
    // Turkish: without a locale its dotless i is another letter.
    {"İndir", "indir", Titles::Same},
    {"Çıkış", "çıkıs", Titles::Same},
    {"Kapı", "Kapi", Titles::Different},
    // German, Danish, Polish: ß is ss, a stroke is no accent.
    {"Schließen", "SCHLIESSEN", Titles::Same},
    {"Öffnen", "offnen", Titles::Same},
    {"Öffnen", "Oeffnen", Titles::Different},
    {"Møde", "Mode", Titles::Different},
    {"Właśnie", "wlasnie", Titles::Different},
    // Vietnamese, composed and not.
    {"Mở tệp", "Mo\u031B\u0309 te\u0323\u0302p", Titles::Same},
    {"Mở tệp", "mo tep", Titles::Same},
    {"Đóng", "Dong", Titles::Different},
    // Greek, Cyrillic.
    {"Άνοιγμα", "ΑΝΟΙΓΜΑ", Titles::Same},
    {"Ещё", "еще", Titles::Same},
    {"Файл", "Папка", Titles::Different},
    // Japanese: widths are one, sound marks and kinds of kana are not.
    {"ﾌｧｲﾙ", "ファイル", Titles::Same},
    {"ﾊﾞｯｸｱｯﾌﾟ", "バックアップ", Titles::Same},
    {"ＰＤＦ　として書き出す…", "pdf として書き出す", Titles::Same},
    {"か\u3099くせい", "がくせい", Titles::Same},
    {"カキ", "カギ", Titles::Different},
    {"ふぁいる", "ファイル", Titles::Different},
    // Scripts in which marks make other words.
    {"كُتُب", "كتب", Titles::Different},
    {"מִלָּה", "מִלָּה", Titles::Same},
    {"น้ำ", "นำ", Titles::Different},
    {"한글", "\u1112\u1161\u11AB\u1100\u1173\u11AF", Titles::Same},
    // Emoji.
    {"👍 Like", "👍 LIKE", Titles::Same},
    {"👍🏽", "👍🏿", Titles::Different},
    {"👩\u200D💻", "👩💻", Titles::Different},
    // A stop of another width is no full stop at the end.
    {"Ende．", "Ende", Titles::Different},
};

} // namespace

TEST(MenuTitle, tellsTitlesApartAsPeopleDo) {
    for (const auto& [left, right, expected] : pairs) {
        ASSERT_TRUE(normalized(left) && normalized(right)) << left << " | " << right;
        EXPECT_EQ(normalized(left) == normalized(right), expected == Titles::Same) << left << " | " << right;
    }
}

TEST(MenuTitle, isNoneWhereNothingIsLeft) {
    EXPECT_EQ(normalized(std::nullopt), std::nullopt);
    for (const char* title : {"", "   ", " \n\t", "...", "…", "….", "\u3000\u00A0", "\u200B"})
        EXPECT_EQ(normalized(title), std::nullopt) << title;
    EXPECT_EQ(normalized("\xFF"), "\uFFFD");
}

} // namespace tavrin
