#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

namespace mac_model {

// Files read and replaced as a whole. Errors are the system's words for the reason, such as "Permission
// denied".

[[nodiscard]] std::expected<std::string, std::string> readWholeFile(const std::filesystem::path&);

/// Writes beside the file, flushes to the disk and renames: after a crash of the machine the file holds
/// either the old text or the new one. Its folder must exist.
[[nodiscard]] std::expected<void, std::string> replaceWholeFile(const std::filesystem::path&,
                                                                std::string_view text);

} // namespace mac_model
