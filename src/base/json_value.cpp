#include "base/json_value.h"

#include "base/unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

namespace tavrin {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view escapeLetters = "\"\\/bfnrt";
constexpr std::string_view escapedCharacters = "\"\\/\b\f\n\r\t";

bool isDigit(char character) { return character >= '0' && character <= '9'; }

using CharacterSet = std::array<bool, 256>;

/// ASCII that stands in a string for itself.
constexpr CharacterSet plainCharacters = [] {
    CharacterSet set{};
    for (unsigned character = 0x20; character < 0x80; ++character) set[character] = true;
    set['"'] = set['\\'] = false;
    return set;
}();

/// The same without the characters that are escaped though they needn't be.
constexpr CharacterSet unescapedCharacters = [] {
    auto set = plainCharacters;
    set['/'] = false;
    return set;
}();

/// The number of characters at the text's front that are of the set.
std::size_t countOfFirst(std::string_view text, const CharacterSet& set) {
    const auto isOther = [&set](char character) { return !set[static_cast<unsigned char>(character)]; };
    return static_cast<std::size_t>(std::ranges::find_if(text, isOther) - text.begin());
}

/// The integer with these digits and zeros after them.
std::optional<std::int64_t> integerFrom(std::string digits, std::size_t zeros) {
    constexpr std::size_t zerosMax = 18; // more don't fit after any digit but 0
    if (zeros > zerosMax) return std::nullopt;
    digits.append(zeros, '0');
    std::int64_t integer = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), integer);
    return error == std::errc() ? std::optional(integer) : std::nullopt;
}

/// The value of a number in JSON's notation when it is an integer of 64 bits.
std::optional<std::int64_t> integerOf(std::string_view number) {
    const auto mantissa = number.substr(0, number.find_first_of("eE"));
    const auto whole = mantissa.substr(0, mantissa.find('.'));
    const auto fraction = mantissa.substr(std::min(mantissa.size(), whole.size() + 1));
    std::string digits(whole);
    digits += fraction;
    if (digits.find_first_not_of("-0") == std::string::npos) return 0;
    auto exponent = -static_cast<std::int64_t>(fraction.size());
    if (mantissa.size() < number.size()) // strtoll stays at its limits when there are more digits
        exponent +=
            std::clamp(std::strtoll(std::string(number.substr(mantissa.size() + 1)).c_str(), nullptr, 10),
                       -1'000'000'000LL, 1'000'000'000LL);
    for (; exponent < 0 && digits.ends_with('0'); ++exponent) digits.pop_back();
    return exponent < 0 ? std::nullopt : integerFrom(std::move(digits), static_cast<std::size_t>(exponent));
}

void appendUtf8(std::string& text, std::vector<std::uint16_t> units) { text += utf8From(units); }

class Parser {
  public:
    explicit Parser(std::string_view text) : rest_(text) {
        if (rest_.starts_with(byteOrderMark)) rest_.remove_prefix(byteOrderMark.size());
    }

    std::optional<JsonValue> document() {
        JsonValue value;
        if (!readValue(value)) return std::nullopt;
        skipSpace();
        return rest_.empty() ? std::optional(std::move(value)) : std::nullopt;
    }

  private:
    void skipSpace() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\n\r"), rest_.size())); }

    bool take(std::string_view word) {
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    bool takeAfterSpace(std::string_view word) {
        skipSpace();
        return take(word);
    }

    bool readValue(JsonValue& into) {
        skipSpace();
        if (rest_.starts_with('"')) return readString(into.value.emplace<std::string>());
        if (rest_.starts_with('{')) return readNested(into, &Parser::readObject);
        if (rest_.starts_with('[')) return readNested(into, &Parser::readArray);
        if (take("null")) return true;
        if (take("true")) return into.value.emplace<bool>(true);
        if (take("false")) return !into.value.emplace<bool>(false);
        return readNumber(into);
    }

    bool readNested(JsonValue& into, bool (Parser::*read)(JsonValue&)) {
        if (depth_ == jsonDepthMax) return false;
        ++depth_;
        rest_.remove_prefix(1);
        const bool isRead = (this->*read)(into);
        --depth_;
        return isRead;
    }

    bool readArray(JsonValue& into) {
        auto& array = into.value.emplace<JsonValue::Array>();
        if (takeAfterSpace("]")) return true;
        do {
            if (!readValue(array.emplace_back())) return false;
        } while (takeAfterSpace(","));
        return take("]");
    }

    bool readObject(JsonValue& into) {
        auto& object = into.value.emplace<JsonValue::Object>();
        if (takeAfterSpace("}")) return true;
        do {
            auto& [name, value] = object.emplace_back();
            skipSpace();
            if (!readString(name) || !takeAfterSpace(":") || !readValue(value)) return false;
        } while (takeAfterSpace(","));
        return take("}");
    }

    bool readString(std::string& into) {
        if (!take("\"")) return false;
        while (!take("\"")) {
            into += taken(countOfFirst(rest_, plainCharacters));
            if (rest_.starts_with('"')) continue;
            if (rest_.empty() || !(rest_.front() == '\\' ? readEscape(into) : readCharacter(into)))
                return false;
        }
        return true;
    }

    std::string_view taken(std::size_t count) {
        const auto front = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return front;
    }

    /// Control characters have to be escaped.
    bool readCharacter(std::string& into) {
        const auto character = takeCharacter(rest_);
        into += character.bytes;
        return !character.isBroken && character.value >= 0x80;
    }

    bool readEscape(std::string& into) {
        if (take("\\u")) return readCodeUnits(into);
        const auto place = rest_.size() < 2 ? std::string_view::npos : escapeLetters.find(rest_[1]);
        if (place == std::string_view::npos) return false;
        rest_.remove_prefix(2);
        into += escapedCharacters[place];
        return true;
    }

    /// Reads what follows "\u".
    bool readCodeUnits(std::string& into) {
        const auto first = readHexadecimal();
        if (!first || (*first & 0xFC00) == 0xDC00) return false;
        if ((*first & 0xFC00) != 0xD800) {
            appendUtf8(into, {*first});
            return true;
        }
        const auto second = take("\\u") ? readHexadecimal() : std::nullopt;
        if (!second || (*second & 0xFC00) != 0xDC00) return false;
        appendUtf8(into, {*first, *second});
        return true;
    }

    std::optional<std::uint16_t> readHexadecimal() {
        constexpr std::size_t digits = 4;
        std::uint16_t unit = 0;
        const auto text = taken(std::min(digits, rest_.size()));
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), unit, 16);
        const bool isWhole = text.size() == digits && end == text.data() + digits;
        return isWhole && error == std::errc() ? std::optional(unit) : std::nullopt;
    }

    bool readNumber(JsonValue& into) {
        const auto begin = rest_;
        take("-");
        if (!take("0") && !skipDigits()) return false;
        if (take(".") && !skipDigits()) return false;
        if ((take("e") || take("E")) && ((take("+") || take("-")), !skipDigits())) return false;
        const auto number = begin.substr(0, begin.size() - rest_.size());
        if (const auto integer = integerOf(number))
            into.value = *integer;
        else
            into.value = JsonOtherNumber();
        return true;
    }

    bool skipDigits() {
        const auto count = static_cast<std::size_t>(std::ranges::find_if_not(rest_, isDigit) - rest_.begin());
        rest_.remove_prefix(count);
        return count > 0;
    }

    std::string_view rest_;
    std::size_t depth_ = 0;
};

void appendEscaped(std::string& json, char character) {
    const auto place = escapedCharacters.find(character);
    json += '\\';
    if (place != std::string_view::npos) {
        json += escapeLetters[place];
        return;
    }
    constexpr std::string_view digits = "0123456789abcdef";
    json += "u00";
    json += digits[static_cast<unsigned char>(character) >> 4];
    json += digits[character & 0xF];
}

void appendSpecial(std::string& json, const Utf8Character& character) {
    if (character.value < 0x80)
        appendEscaped(json, character.bytes.front());
    else if (character.isBroken)
        appendCharacter(json, replacementCharacter);
    else
        json += character.bytes;
}

} // namespace

std::optional<JsonValue> parseJson(std::string_view text) { return Parser(text).document(); }

void appendJsonString(std::string& json, std::string_view text) {
    json += '"';
    while (!text.empty()) {
        const auto unescaped = countOfFirst(text, unescapedCharacters);
        json += text.substr(0, unescaped);
        text.remove_prefix(unescaped);
        if (!text.empty()) appendSpecial(json, takeCharacter(text));
    }
    json += '"';
}

} // namespace tavrin
