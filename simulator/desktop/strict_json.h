#pragma once

#include <cstddef>
#include <expected>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace mac_model {

/// Deep enough for any menu; shallow enough that walking a value by recursion is safe.
inline constexpr std::size_t jsonDepthMax = 64;

/// Where reading a JSON text failed and why, both fit for one line.
struct JsonFault {
    std::string pointer; ///< RFC 6901; empty for the whole text
    std::string problem;
};

/// Parses JSON in UTF-8, refusing what the plain parser lets through: an object that gives a key twice, and
/// nesting deeper than `jsonDepthMax`. Never throws, whatever the bytes.
[[nodiscard]] std::expected<nlohmann::json, JsonFault> parseStrictJson(std::string_view text);

/// `pointer` with one more step, escaped as RFC 6901 wants it.
[[nodiscard]] std::string pointerTo(const std::string& pointer, std::string_view key);
[[nodiscard]] std::string pointerTo(const std::string& pointer, std::size_t index);

/// Control characters and broken UTF-8 become escapes, so that the result is one printable line.
[[nodiscard]] std::string onOneLine(std::string_view text);

/// `text` in quotes for a message, on one line and cut when long.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// "POINTER: problem", with "/" for the whole.
[[nodiscard]] std::string describe(const JsonFault&);

} // namespace mac_model
