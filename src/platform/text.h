#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace tavrin {

/// The system's text services. Comparing, and folding where nothing else is said, follow the user's current
/// locale; the other operations are the same in every locale, so that identifiers stay what they are. Text is
/// UTF-8; invalid bytes are read as U+FFFD. Any thread.
class Text {
  public:
    virtual ~Text() = default;

    /// Localized comparison in which letter case does not count.
    virtual std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const = 0;

    /// The text without differences of case and of diacritics.
    virtual std::string foldingCaseAndDiacritics(std::string_view text) const = 0;

    /// Also without differences of width (half-width kana, full-width letters), and the same in every locale.
    /// Marks come off Latin, Greek and Cyrillic letters only. Canonically equivalent texts give equal bytes.
    virtual std::string foldingCaseDiacriticsAndWidth(std::string_view text) const = 0;

    virtual std::string lowercased(std::string_view text) const = 0;

    /// Each word with an upper-case first letter and lower-case others.
    virtual std::string capitalized(std::string_view text) const = 0;

    /// Only the characters that are letters, marks or numbers.
    virtual std::string keepingAlphanumerics(std::string_view text) const = 0;

    /// The text without white space and line breaks at both ends.
    virtual std::string trimmed(std::string_view text) const = 0;
};

} // namespace tavrin
