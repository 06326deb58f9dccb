#include "desktop/strict_json.h"

#include "base/unicode.h"

#include <algorithm>
#include <vector>

namespace mac_model {
namespace {

using nlohmann::json;

/// Builds the value and knows at each moment where in it the parser stands.
class StrictBuilder : public nlohmann::json_sax<json> {
  public:
    explicit StrictBuilder(std::string_view text) : text_(text) {}

    bool null() override { return put(nullptr); }

    bool boolean(bool value) override { return put(value); }

    bool number_integer(number_integer_t value) override { return put(value); }

    bool number_unsigned(number_unsigned_t value) override { return put(value); }

    bool number_float(number_float_t value, const string_t&) override { return put(value); }

    bool string(string_t& value) override { return put(std::move(value)); }

    bool binary(binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open(json::object()); }

    bool end_object() override { return close(); }

    bool start_array(std::size_t) override { return open(json::array()); }

    bool end_array() override { return close(); }

    bool key(string_t& name) override {
        if (open_.back().value.contains(name))
            return fail(pointerTo(pointer(), name), "is given twice in one object");
        open_.back().key = std::move(name);
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const json::exception& error) override {
        return fail(pointer(), "is not JSON " + lineAndColumn(position) + ": " + reasonIn(error.what()));
    }

    std::expected<json, JsonFault> take(bool parsed) {
        if (!parsed) return std::unexpected(std::move(fault_));
        return std::move(root_);
    }

  private:
    struct Level {
        json value;
        std::string key; ///< of the member being read, in an object
    };

    bool open(json container) {
        if (open_.size() == jsonDepthMax)
            return fail(pointer(), "is nested more than " + std::to_string(jsonDepthMax) + " levels deep");
        open_.push_back({std::move(container), {}});
        return true;
    }

    bool close() {
        json finished = std::move(open_.back().value);
        open_.pop_back();
        return put(std::move(finished));
    }

    bool put(json value) {
        if (open_.empty()) {
            root_ = std::move(value);
        } else if (Level& level = open_.back(); level.value.is_object()) {
            level.value[level.key] = std::move(value);
            level.key.clear();
        } else {
            level.value.push_back(std::move(value));
        }
        return true;
    }

    std::string pointer() const {
        std::string result;
        for (std::size_t i = 0; i < open_.size(); ++i) {
            const Level& level = open_[i];
            const bool innermost = i + 1 == open_.size();
            if (!level.value.is_object())
                result = pointerTo(result, level.value.size());
            else if (!innermost || !level.key.empty())
                result = pointerTo(result, level.key);
        }
        return result;
    }

    bool fail(std::string pointer, std::string problem) {
        fault_ = {std::move(pointer), std::move(problem)};
        return false;
    }

    std::string lineAndColumn(std::size_t position) const {
        const std::string_view before = text_.substr(0, position == 0 ? 0 : position - 1);
        const auto line = std::count(before.begin(), before.end(), '\n') + 1;
        const std::size_t lineStart = before.rfind('\n') + 1;
        return "at line " + std::to_string(line) + ", column " +
               std::to_string(before.size() - lineStart + 1);
    }

    /// "[json.exception…] parse error at …: syntax error … - REASON; last read: …" in the library's words.
    static std::string reasonIn(std::string_view what) {
        if (what.find("number overflow") != what.npos) return "a number is too large";
        if (const auto dash = what.find(" - "); dash != what.npos) what.remove_prefix(dash + 3);
        return std::string(what.substr(0, what.find("; last read: ")));
    }

    std::string_view text_;
    std::vector<Level> open_;
    json root_;
    JsonFault fault_;
};

std::string escapedByte(char byte) {
    static constexpr char digits[] = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    return {'\\', 'x', digits[value >> 4], digits[value & 15]};
}

} // namespace

std::expected<json, JsonFault> parseStrictJson(std::string_view text) {
    StrictBuilder builder(text);
    return builder.take(json::sax_parse(text.begin(), text.end(), &builder));
}

std::string pointerTo(const std::string& pointer, std::string_view key) {
    std::string result = pointer + '/';
    for (const char c : key) {
        if (c == '~')
            result += "~0";
        else if (c == '/')
            result += "~1";
        else
            result += c;
    }
    return result;
}

std::string pointerTo(const std::string& pointer, std::size_t index) {
    return pointer + '/' + std::to_string(index);
}

std::string onOneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const auto character = tavrin::takeCharacter(text);
        if (character.isBroken || character.value < 0x20 || character.value == 0x7f)
            for (const char byte : character.bytes) line += escapedByte(byte);
        else
            line += character.bytes;
    }
    return line;
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t bytesMax = 60;
    return '"' + onOneLine(tavrin::frontWithin(bytesMax, text)) + (text.size() > bytesMax ? "…" : "") + '"';
}

std::string describe(const JsonFault& fault) {
    constexpr std::size_t pointerBytesMax = 300;
    const std::string pointer = onOneLine(tavrin::frontWithin(pointerBytesMax, fault.pointer));
    return (pointer.empty() ? "/" : pointer) + ": " + onOneLine(fault.problem) + '.';
}

} // namespace mac_model
