#include "views/text_metrics.h"

#include "base/unicode.h"
#include "views/code_points.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace mac_model {

namespace {

// Advance widths of the printable ASCII characters of Helvetica, in thousandths of the font size.
constexpr std::array<std::uint16_t, 95> asciiAdvances{
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};

// The system font is set a little wider than Helvetica, its semibold a little more.
constexpr double regularStretch = 1.04;
constexpr double semiboldStretch = 1.10;

double advanceOf(char32_t character) {
    if (character >= 0x20 && character < 0x7F) return asciiAdvances[character - 0x20];
    if (isZeroWidth(character)) return 0;
    if (isWide(character) || character == 0x2026) return 1000;
    if (character == 0x2018 || character == 0x2019) return 222;
    return 560;
}

double stretchOf(TextStyle style) {
    const bool isSemibold = style == TextStyle::Title || style == TextStyle::Heading;
    return isSemibold ? semiboldStretch : regularStretch;
}

/// Fills lines piece by piece; a piece is a word, a blank or a wide character, and never grows wider than a
/// line.
class LineFiller {
  public:
    LineFiller(TextStyle style, double width) : style_(style), width_(width) {}

    void addWord(std::string_view word) {
        const double wordWidth = widthOf(word, style_);
        if (lineWidth_ + pendingBlanksWidth() + wordWidth <= width_ || isEmpty())
            return append(word, wordWidth);
        breakLine();
        append(word, wordWidth);
    }

    void addBlank() { ++pendingBlanks_; }

    void breakLine() {
        lines_.push_back(std::exchange(line_, {}));
        lineWidth_ = 0;
        pendingBlanks_ = 0;
    }

    std::vector<std::string> finish() {
        breakLine();
        return std::move(lines_);
    }

  private:
    bool isEmpty() const { return line_.empty(); }

    double pendingBlanksWidth() const {
        return isEmpty() ? 0 : static_cast<double>(pendingBlanks_) * widthOf(" ", style_);
    }

    void append(std::string_view word, double wordWidth) {
        lineWidth_ += pendingBlanksWidth();
        if (!isEmpty()) line_.append(pendingBlanks_, ' ');
        pendingBlanks_ = 0;
        if (lineWidth_ + wordWidth <= width_) {
            line_ += word;
            lineWidth_ += wordWidth;
        } else {
            appendInParts(word);
        }
    }

    void appendInParts(std::string_view word) {
        for (const auto character : tavrin::charactersOf(word)) {
            const double characterWidth = widthOf(character.bytes, style_);
            if (!isEmpty() && lineWidth_ + characterWidth > width_) breakLine();
            line_ += character.bytes;
            lineWidth_ += characterWidth;
        }
    }

    TextStyle style_;
    double width_;
    std::vector<std::string> lines_;
    std::string line_;
    double lineWidth_ = 0;
    std::size_t pendingBlanks_ = 0;
};

} // namespace

double fontSizeOf(TextStyle style) {
    switch (style) {
    case TextStyle::Title:
        return 22;
    case TextStyle::Heading:
        return 15;
    case TextStyle::Caption:
        return 11;
    case TextStyle::Body:
        break;
    }
    return 13;
}

double lineHeightOf(TextStyle style) { return std::ceil(fontSizeOf(style) * 1.22); }

double widthOf(std::string_view text, TextStyle style) {
    double thousandths = 0;
    for (const auto character : tavrin::charactersOf(text)) thousandths += advanceOf(character.value);
    return thousandths / 1000 * fontSizeOf(style) * stretchOf(style);
}

std::vector<std::string> wrapped(std::string_view text, TextStyle style, double width) {
    LineFiller filler(style, width);
    std::size_t wordBegin = 0;
    std::size_t position = 0;
    const auto endWord = [&] {
        if (position > wordBegin) filler.addWord(text.substr(wordBegin, position - wordBegin));
    };
    for (const auto character : tavrin::charactersOf(text)) {
        const bool isBreak = character.value == '\n';
        if (isBreak || character.value == ' ' || isWide(character.value)) {
            endWord();
            wordBegin = position + character.bytes.size();
            if (isBreak)
                filler.breakLine();
            else if (character.value == ' ')
                filler.addBlank();
            else
                filler.addWord(character.bytes);
        }
        position += character.bytes.size();
    }
    endWord();
    return filler.finish();
}

} // namespace mac_model
