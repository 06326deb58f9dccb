#include "seam/system/text_icu.h"

#include "base/unicode.h"

#include <cassert>
#include <functional>
#include <string>
#include <unicode/brkiter.h>
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace mac_model {

namespace {

using icu::UnicodeString;

UnicodeString unicode(std::string_view text) {
    return UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string utf8(const UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

UnicodeString keeping(const UnicodeString& text, bool (*isKept)(UChar32)) {
    UnicodeString kept;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        if (isKept(text.char32At(i))) kept.append(text.char32At(i));
    return kept;
}

bool isAlphanumeric(UChar32 character) {
    return (U_GET_GC_MASK(character) & (U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK)) != 0;
}

bool isNoAccent(UChar32 character) { return u_charType(character) != U_NON_SPACING_MARK; }

/// From here on (Armenian, Hebrew, Arabic, kana) marks tell words apart and stay.
constexpr UChar32 marksMatterFrom = 0x0510;

bool isMark(UChar32 character) { return u_hasBinaryProperty(character, UCHAR_GRAPHEME_EXTEND) != 0; }

bool isWhiteSpace(UChar32 character) {
    return character >= 0 && tavrin::isWhiteSpaceOnMac(static_cast<char32_t>(character));
}

class IcuText final : public tavrin::Text {
  public:
    IcuText() {
        UErrorCode status = U_ZERO_ERROR;
        collator_.reset(icu::Collator::createInstance(locale_, status));
        decomposition_ = icu::Normalizer2::getNFDInstance(status);
        composition_ = icu::Normalizer2::getNFCInstance(status);
        compatibility_ = icu::Normalizer2::getNFKCInstance(status);
        assert(U_SUCCESS(status) && "ICU has its data");
        collator_->setStrength(icu::Collator::SECONDARY); // letters and accents count, case does not
    }

    std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        UErrorCode status = U_ZERO_ERROR;
        return collator_->compare(unicode(left), unicode(right), status) <=> 0;
    }

    std::string foldingCaseAndDiacritics(std::string_view text) const override {
        UErrorCode status = U_ZERO_ERROR;
        auto folded = keeping(decomposition_->normalize(unicode(text), status), isNoAccent);
        return utf8(composition_->normalize(folded.foldCase(), status));
    }

    std::string foldingCaseDiacriticsAndWidth(std::string_view text) const override {
        UErrorCode status = U_ZERO_ERROR;
        return utf8(composition_->normalize(foldedClusters(unicode(text)), status));
    }

    std::string lowercased(std::string_view text) const override {
        return utf8(unicode(text).toLower(locale_));
    }

    std::string capitalized(std::string_view text) const override {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::BreakIterator> words(
            icu::BreakIterator::createWordInstance(locale_, status));
        return utf8(unicode(text).toTitle(words.get(), locale_));
    }

    std::string keepingAlphanumerics(std::string_view text) const override {
        return utf8(keeping(unicode(text), isAlphanumeric));
    }

    std::string trimmed(std::string_view text) const override {
        const auto characters = unicode(text);
        std::int32_t begin = 0;
        std::int32_t end = characters.length();
        while (begin < end && isWhiteSpace(characters.char32At(begin)))
            begin = characters.moveIndex32(begin, 1);
        while (end > begin && isWhiteSpace(characters.char32At(end - 1)))
            end = characters.moveIndex32(end, -1);
        return utf8(characters.tempSubStringBetween(begin, end));
    }

  private:
    /// As Core Foundation folds: a base with its marks at a time.
    UnicodeString foldedClusters(const UnicodeString& text) const {
        UnicodeString folded;
        bool losesMarks = false;
        for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
            const auto character = withUsualWidth(text.char32At(i));
            if (i > 0 && isMark(character)) {
                if (!losesMarks) folded.append(character);
                continue;
            }
            const auto base = baseOf(character);
            losesMarks = base < marksMatterFrom;
            folded.append(UnicodeString(losesMarks ? base : character).foldCase());
        }
        return folded;
    }

    /// The first character of the decomposition.
    UChar32 baseOf(UChar32 character) const {
        UnicodeString parts;
        return decomposition_->getDecomposition(character, parts) ? parts.char32At(0) : character;
    }

    UChar32 withUsualWidth(UChar32 character) const {
        if (character < 0xFF00 || character > 0xFFEF) return character;
        UnicodeString usual;
        return compatibility_->getDecomposition(character, usual) ? usual.char32At(0) : character;
    }

    icu::Locale locale_{"en", "US"};
    std::unique_ptr<icu::Collator> collator_;
    const icu::Normalizer2* decomposition_ = nullptr;
    const icu::Normalizer2* composition_ = nullptr;
    const icu::Normalizer2* compatibility_ = nullptr;
};

} // namespace

std::unique_ptr<tavrin::Text> makeIcuText() { return std::make_unique<IcuText>(); }

} // namespace mac_model
