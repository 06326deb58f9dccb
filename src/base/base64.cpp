#include "base/base64.h"

#include <array>
#include <cstdint>

namespace tavrin {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        values[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
    return values;
}();

std::size_t paddingOf(std::string_view text) {
    if (text.ends_with("==")) return 2;
    return text.ends_with('=') ? 1 : 0;
}

/// Up to three bytes, from the highest bits on.
std::uint32_t groupFrom(std::span<const std::byte> bytes) {
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i)
        group = group << 8 | (i < bytes.size() ? std::to_integer<std::uint32_t>(bytes[i]) : 0);
    return group;
}

char* writeGroup(char* place, std::uint32_t group, std::size_t digits) {
    for (std::size_t i = 0; i < digits; ++i) *place++ = alphabet[group >> (18 - 6 * i) & 0x3F];
    return place;
}

} // namespace

std::string base64From(std::span<const std::byte> bytes) {
    std::string text((bytes.size() + 2) / 3 * 4, '=');
    auto* place = text.data();
    std::size_t i = 0;
    for (; i + 3 <= bytes.size(); i += 3) place = writeGroup(place, groupFrom(bytes.subspan(i, 3)), 4);
    const auto left = bytes.size() - i;
    if (left > 0) writeGroup(place, groupFrom(bytes.subspan(i)), left + 1);
    return text;
}

std::optional<std::vector<std::byte>> bytesFromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    const auto digits = text.substr(0, text.size() - paddingOf(text));
    std::vector<std::byte> bytes(digits.size() * 6 / 8);
    auto* place = bytes.data();
    std::uint32_t group = 0;
    int bits = 0; // of the group that no byte has taken yet
    for (const char digit : digits) {
        const auto value = digitValues[static_cast<unsigned char>(digit)];
        if (value == noDigit) return std::nullopt;
        group = group << 6 | value;
        bits += 6;
        if (bits < 8) continue;
        bits -= 8;
        *place++ = static_cast<std::byte>(group >> bits);
    }
    return bytes;
}

} // namespace tavrin
