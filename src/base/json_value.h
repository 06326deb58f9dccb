#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavrin {

/// A number that is no integer of 64 bits. Its value isn't kept, because nothing has needed it yet.
struct JsonOtherNumber {};

struct JsonMember;

/// A JSON text that was read; null by default.
struct JsonValue {
    using Array = std::vector<JsonValue>;
    /// As written, with names that occur twice.
    using Object = std::vector<JsonMember>;

    std::variant<std::nullptr_t, bool, std::int64_t, JsonOtherNumber, std::string, Array, Object> value;
};

struct JsonMember {
    std::string name;
    JsonValue value;
};

/// Deeper nesting than this is refused, which bounds the stack that reading takes.
inline constexpr std::size_t jsonDepthMax = 512;

/// Reads a JSON text; none for what is no JSON (RFC 8259), in which invalid UTF-8, a lone surrogate in an
/// escape and anything after the value have no place. A byte order mark is skipped. 4.0 and 4e0 are integers
/// as well. Any thread.
std::optional<JsonValue> parseJson(std::string_view text);

/// Appends the text as a JSON string, with "/" escaped. Bytes that are no UTF-8 become U+FFFD.
void appendJsonString(std::string& json, std::string_view text);

} // namespace tavrin
