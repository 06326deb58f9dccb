#include "system/bundles_on_disk.h"

#include <filesystem>

namespace mac_model {

std::optional<std::string> BundlesOnDisk::bundleIdentifierAt(std::string_view path) const {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    const auto found = bundles_.find(path);
    return found == bundles_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> BundlesOnDisk::nameOfBundle(std::string_view bundleIdentifier) const {
    for (const auto& [path, identifier] : bundles_)
        if (identifier == bundleIdentifier) return std::filesystem::path(path).stem().string();
    return std::nullopt;
}

} // namespace mac_model
