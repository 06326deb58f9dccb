#include "terminal/simulator_options.h"

#include <charconv>
#include <map>
#include <utility>

namespace mac_model {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view defaultDesktop = "notched-laptop";

const std::map<std::string_view, Mode> modes{
    {"--stdio", Mode::Stdio}, {"--prompt", Mode::Prompt}, {"--tour", Mode::Tour}, {"--serve", Mode::Serve}};

/// A file as named, or one of those that ship, with or without its ending.
fs::path desktopPath(std::string_view name, const fs::path& desktops) {
    const fs::path given(name);
    std::error_code ignored;
    if (given.has_parent_path() || fs::exists(given, ignored)) return given;
    for (const auto& candidate : {desktops / given, desktops / (std::string(name) + ".json")})
        if (fs::is_regular_file(candidate, ignored)) return candidate;
    return given;
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

} // namespace

std::expected<SimulatorOptions, std::string>
parseSimulatorOptions(std::span<const std::string_view> arguments, const fs::path& desktops) {
    SimulatorOptions options;
    options.desktop = desktopPath(defaultDesktop, desktops);
    bool hasMode = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto argument = arguments[i];
        if (const auto mode = modes.find(argument); mode != modes.end()) {
            if (std::exchange(hasMode, true))
                return std::unexpected("give only one of --stdio, --prompt, --tour and --serve");
            options.mode = mode->second;
            continue;
        }
        const bool takesValue = argument == "--desktop" || argument == "--profile" || argument == "--seed" ||
                                argument == "--port";
        if (!takesValue) return std::unexpected("there is no option " + std::string(argument));
        if (++i == arguments.size() || arguments[i].empty())
            return std::unexpected(std::string(argument) + " needs a value");
        if (argument == "--desktop")
            options.desktop = desktopPath(arguments[i], desktops);
        else if (argument == "--profile")
            options.profile = fs::path(arguments[i]);
        else if (argument == "--port") {
            const auto port = numberIn<std::uint16_t>(arguments[i]);
            if (!port) return std::unexpected("--port needs a whole number up to 65535");
            options.port = *port;
        } else if (const auto seed = numberIn<std::uint64_t>(arguments[i]))
            options.seed = *seed;
        else
            return std::unexpected("--seed needs a whole number that isn't negative");
    }
    if (options.port != 0 && options.mode != Mode::Serve) return std::unexpected("--port belongs to --serve");
    if (!hasMode) return std::unexpected("say how to drive it: --stdio, --prompt, --tour or --serve");
    return options;
}

} // namespace mac_model
