#include "pins/store/uuid.h"

#include <cstddef>

namespace tavrin {

namespace {

constexpr std::size_t textLength = 36;

bool hasHyphenBefore(std::size_t byte) { return byte == 4 || byte == 6 || byte == 8 || byte == 10; }

std::optional<std::uint8_t> valueOf(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<std::uint8_t>(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f') return static_cast<std::uint8_t>(digit - 'a' + 10);
    return std::nullopt;
}

/// Reads two digits.
std::optional<std::uint8_t> byteFrom(std::string_view digits) {
    const auto high = valueOf(digits[0]);
    const auto low = valueOf(digits[1]);
    if (!high || !low) return std::nullopt;
    return static_cast<std::uint8_t>(*high << 4 | *low);
}

} // namespace

Uuid Uuid::create(Randomness& randomness) {
    Uuid uuid;
    for (std::size_t half : {0u, 8u}) {
        auto number = randomness.number();
        for (std::size_t i = 0; i < 8; ++i, number >>= 8)
            uuid.bytes[half + i] = static_cast<std::uint8_t>(number);
    }
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80); // RFC 9562's variant
    return uuid;
}

std::optional<Uuid> Uuid::from(std::string_view text) {
    if (text.size() != textLength) return std::nullopt;
    Uuid uuid;
    for (std::size_t i = 0; i < uuid.bytes.size(); ++i) {
        if (hasHyphenBefore(i)) {
            if (!text.starts_with('-')) return std::nullopt;
            text.remove_prefix(1);
        }
        const auto byte = byteFrom(text.substr(0, 2));
        if (!byte) return std::nullopt;
        uuid.bytes[i] = *byte;
        text.remove_prefix(2);
    }
    return uuid;
}

std::string Uuid::text() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(textLength);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (hasHyphenBefore(i)) text += '-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
    }
    return text;
}

} // namespace tavrin
