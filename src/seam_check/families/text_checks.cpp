#include "platform/text.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/folded_texts.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <span>
#include <string>

namespace tavrin::seam_check {

namespace {

using Case = TextCase;
using Operation = std::string (Text::*)(std::string_view) const;

// No letter I in the tables: Turkish gives it another counterpart. "\xFF" is no UTF-8.

Verdict compareWithTable(const Text& text, Operation operation, std::span<const Case> table) {
    Findings findings;
    for (const auto& [given, expected] : table) {
        const auto result = (text.*operation)(given);
        findings.expect(result == expected,
                        quoted(given) + " gave " + quoted(result) + " and not " + quoted(expected));
    }
    return findings.verdict(counted(table.size(), "text") + " came out as expected.");
}

Verdict folds(const Platform& platform) {
    static constexpr Case table[] = {
        {"", ""},
        {"Éclat", "eclat"},
        {"ÅNGSTROM", "angstrom"},
        {"e\u0301tude", "etude"},
        {"Ωμέγα", "ωμεγα"},
        {"a\xFF"
         "b",
         "a\uFFFDb"},
        {"日本", "日本"},
        {"A1-_", "a1-_"},
    };
    return compareWithTable(platform.text, &Text::foldingCaseAndDiacritics, table);
}

Verdict foldsWidth(const Platform& platform) {
    return compareWithTable(platform.text, &Text::foldingCaseDiacriticsAndWidth, foldedTexts);
}

Verdict lowers(const Platform& platform) {
    static constexpr Case table[] = {
        {"", ""}, {"ÉCOLE", "école"}, {"Up AND Down", "up and down"}, {"A\xFF", "a\uFFFD"}, {"ЖУК", "жук"},
    };
    return compareWithTable(platform.text, &Text::lowercased, table);
}

Verdict capitalizes(const Platform& platform) {
    static constexpr Case table[] = {
        {"", ""},
        {"hello WORLD", "Hello World"},
        {"étude", "Étude"},
        {"a\xFF b", "A\uFFFD B"},
        {"two  spaces", "Two  Spaces"},
    };
    return compareWithTable(platform.text, &Text::capitalized, table);
}

Verdict keepsAlphanumerics(const Platform& platform) {
    static constexpr Case table[] = {
        {"", ""},
        {"a.b c-1_é", "abc1é"},
        {"日本 語", "日本語"},
        {"a😀b", "ab"},
        {"a\xFF"
         "b",
         "ab"},
        {"—…’", ""},
        {"x²", "x²"},
    };
    return compareWithTable(platform.text, &Text::keepingAlphanumerics, table);
}

Verdict trims(const Platform& platform) {
    static constexpr Case table[] = {
        {"", ""},
        {" \t\r\n ", ""},
        {" \t a b \r\n", "a b"},
        {"\u00A0x\u00A0", "x"},
        {"\u0085\u2028x\u2029", "x"},
        {"\u200B x\u200By\u200B", "x\u200By"},
        {" \xFF ", "\uFFFD"},
    };
    return compareWithTable(platform.text, &Text::trimmed, table);
}

std::string sign(std::strong_ordering order) { return order < 0 ? "<" : order > 0 ? ">" : "="; }

Verdict compares(const Platform& platform) {
    struct Pair {
        std::string_view left;
        std::string_view right;
        std::strong_ordering expected;
    };

    using Order = std::strong_ordering;
    static constexpr Pair table[] = {
        {"", "", Order::equal},
        {"apple", "APPLE", Order::equal},
        {"École", "éCOLE", Order::equal},
        {"", "a", Order::less},
        {"B", "a", Order::greater},
        {"a", "B", Order::less},
        {"é", "f", Order::less},
        {"e", "é", Order::less},
        {"ab", "abc", Order::less},
        {"\xFF", "\uFFFD", Order::equal},
        {"note 10", "note 2", Order::less},
    };
    Findings findings;
    for (const auto& [left, right, expected] : table) {
        const auto order = platform.text.compareIgnoringCase(left, right);
        const auto reverse = platform.text.compareIgnoringCase(right, left);
        findings.expect(order == expected, quoted(left) + " " + sign(order) + " " + quoted(right));
        findings.expect(sign(reverse) == sign(0 <=> order),
                        quoted(left) + " and " + quoted(right) + " compare otherwise the other way round");
    }
    return findings.verdict(counted(std::size(table), "pair") + " compared as expected.");
}

Task<Verdict> worksOnAnyThread(Platform platform) {
    const auto& text = platform.text;
    const auto folded =
        co_await offTheMainThread(platform, [&text] { return text.foldingCaseAndDiacritics("Éclat"); });
    if (folded != "eclat") co_return failed("Off the main thread a text is folded otherwise.");
    co_return passed("Folding works on a queue, too.");
}

} // namespace

std::vector<Check> textChecks() {
    constexpr auto family = "text";
    return {
        reads(family, "Folding takes away case and diacritics and reads invalid bytes as U+FFFD.", folds),
        reads(family, "Folding width, too, is the same in every locale and leaves other scripts their marks.",
              foldsWidth),
        reads(family, "Comparing takes no account of case, but of accents.", compares),
        reads(family, "Lower case is made of every script.", lowers),
        reads(family, "Capitalizing raises the first letter of each word and lowers the others.",
              capitalizes),
        reads(family, "Only letters, marks and numbers are kept.", keepsAlphanumerics),
        reads(family, "Trimming takes white space and line breaks off both ends.", trims),
        reads(family, "Text services work on any thread.", worksOnAnyThread),
    };
}

} // namespace tavrin::seam_check
