#include "applications/application_icon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdint>
#include <png.h>

namespace mac_model {

namespace {

constexpr int side = 32;
constexpr double cornerRadius = 0.24 * side;
constexpr std::uint32_t pixelsPerMeter = 5669; // 144 to the inch: two for each point

struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
};

using Pixels = std::array<std::uint8_t, side * side * 4>;

int hueOf(std::string_view bundleIdentifier) {
    int hue = 7;
    for (const char letter : bundleIdentifier) hue = (hue * 31 + static_cast<unsigned char>(letter)) % 360;
    return hue;
}

/// Hue in degrees; the others from 0 to 1.
Color hsl(double hue, double saturation, double lightness) {
    const auto channel = [&](double offset) {
        const double place = std::fmod(offset + hue / 30, 12);
        const double amount = saturation * std::min(lightness, 1 - lightness);
        return lightness - amount * std::clamp(std::min(place - 3, 9 - place), -1.0, 1.0);
    };
    return {channel(0), channel(8), channel(4)};
}

Color mixed(Color from, Color to, double share) {
    const auto mix = [share](double a, double b) { return a + (b - a) * share; };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

/// How much of the pixel lies in the tile with its round corners.
double coverage(int x, int y) {
    constexpr double half = side / 2.0;
    const double beyondX = std::max(0.0, std::abs(x + 0.5 - half) - (half - cornerRadius));
    const double beyondY = std::max(0.0, std::abs(y + 0.5 - half) - (half - cornerRadius));
    return std::clamp(cornerRadius + 0.5 - std::hypot(beyondX, beyondY), 0.0, 1.0);
}

/// A block pattern of the first letter's code stands for the letter: the model has no typeface.
bool isMarked(int x, int y, char letter) {
    constexpr int cell = 4;
    const int column = (x - 10) / cell;
    const int row = (y - 8) / cell;
    if (x < 10 || y < 8 || column > 2 || row > 3) return false;
    const auto code = static_cast<unsigned>(static_cast<unsigned char>(letter)) * 0x9E5u;
    return (code >> (row * 3 + column) & 1u) != 0;
}

Pixels drawn(std::string_view bundleIdentifier, char letter) {
    const double hue = hueOf(bundleIdentifier);
    const auto light = hsl(hue, 0.62, 0.62);
    const auto dark = hsl(std::fmod(hue + 24, 360), 0.60, 0.42);
    Pixels pixels{};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const auto ground = mixed(light, dark, (y + x * 0.36) / (side * 1.36));
            const auto color = isMarked(x, y, letter) ? Color{1, 1, 1} : ground;
            auto* pixel = &pixels[static_cast<std::size_t>(y * side + x) * 4];
            const auto byte = [](double share) {
                return static_cast<std::uint8_t>(std::lround(share * 255));
            };
            pixel[0] = byte(color.red);
            pixel[1] = byte(color.green);
            pixel[2] = byte(color.blue);
            pixel[3] = byte(coverage(x, y));
        }
    return pixels;
}

void append(png_structp png, png_bytep bytes, png_size_t count) {
    auto& file = *static_cast<std::vector<std::byte>*>(png_get_io_ptr(png));
    const auto* begin = reinterpret_cast<const std::byte*>(bytes);
    file.insert(file.end(), begin, begin + count);
}

void writePicture(png_structp png, png_infop info, Pixels& pixels) {
    png_set_IHDR(png, info, side, side, 8, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(png, info, pixelsPerMeter, pixelsPerMeter, PNG_RESOLUTION_METER);
    png_write_info(png, info);
    for (std::size_t row = 0; row < side; ++row) png_write_row(png, &pixels[row * side * 4]);
    png_write_end(png, info);
}

} // namespace

std::vector<std::byte> applicationIconPng(std::string_view bundleIdentifier, std::string_view name) {
    auto pixels = drawn(bundleIdentifier, name.empty() ? '?' : name.front());
    std::vector<std::byte> file;
    auto* png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    auto* info = png_create_info_struct(png);
    png_set_write_fn(png, &file, append, [](png_structp) {});
    // libpng reports a failure by jumping here. Nothing above owns anything that was made since.
    if (setjmp(png_jmpbuf(png)) == 0) writePicture(png, info, pixels);
    png_destroy_write_struct(&png, &info);
    return file;
}

} // namespace mac_model
