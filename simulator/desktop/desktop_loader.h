#pragma once

#include "desktop/desktop_file.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace mac_model {

// Reads desktop files, which people write by hand. A file is taken whole or refused with one line:
//
//     mac.json: /screens/0/frame: must be four finite numbers [x, y, width, height].
//
// that is the file, the place as a JSON pointer ("/" is the whole file), and the fault. Nothing throws.

inline constexpr std::size_t desktopFileBytesMax = 4 * 1024 * 1024;
inline constexpr std::size_t applicationsMax = 2000;

[[nodiscard]] std::expected<DesktopFile, std::string> loadDesktopFile(const std::filesystem::path&);

/// `displayName` stands for the file in messages.
[[nodiscard]] std::expected<DesktopFile, std::string> parseDesktopFile(std::string_view text,
                                                                       std::string_view displayName);

// Readers of the parts that can change while the Mac runs. `pointer` is the place of the value in its source;
// an error begins with that place instead of a file.

/// `processIdentifier` may be left out here and is then 0; the launch assigns one.
[[nodiscard]] std::expected<ApplicationSpec, std::string> parseApplication(const nlohmann::json&,
                                                                           const std::string& pointer);

/// Primary screen first, whatever the order in the array.
[[nodiscard]] std::expected<std::vector<ScreenSpec>, std::string>
parseScreens(const nlohmann::json&, const std::string& pointer, MacOSVersion);

/// `{"zeroPosition": "leftmost", …}` laid over the settings in `model`.
[[nodiscard]] std::expected<Uncertainties, std::string>
parseUncertainties(const nlohmann::json&, const std::string& pointer, Uncertainties model);

[[nodiscard]] std::expected<TakenHotKey, std::string>
parseTakenHotKey(const nlohmann::json&, const std::string& pointer, KeyboardLayout);

[[nodiscard]] std::expected<std::vector<SymbolicHotKey>, std::string>
parseSymbolicHotKeys(const nlohmann::json&, const std::string& pointer);

} // namespace mac_model
