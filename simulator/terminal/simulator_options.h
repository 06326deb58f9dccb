#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mac_model {

enum class Mode { Stdio, Prompt, Tour, Serve };

struct SimulatorOptions {
    Mode mode = Mode::Stdio;
    std::filesystem::path desktop;
    std::optional<std::filesystem::path> profile;
    std::uint64_t seed = 0;
    std::uint16_t port = 0; // Serve: 0 is any free one
};

inline constexpr std::string_view simulatorUsage =
    "usage: tavrin-simulator --stdio|--prompt|--tour|--serve [--desktop FILE] [--profile DIR] [--seed N] [--port N]";

/// `desktops` is the folder in which a desktop that is named without a folder is looked for. The error is one
/// sentence.
std::expected<SimulatorOptions, std::string>
parseSimulatorOptions(std::span<const std::string_view> arguments, const std::filesystem::path& desktops);

} // namespace mac_model
