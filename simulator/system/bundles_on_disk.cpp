#include "system/bundles_on_disk.h"

#include <filesystem>

namespace mac_model {

BundlesOnDisk::BundlesOnDisk(const DesktopFile& desktop)
    : bundles_(desktop.bundles.begin(), desktop.bundles.end()) {
    for (const auto& application : desktop.applications)
        if (!application.bundleIdentifier.empty())
            applications_.emplace(application.bundleIdentifier, application.name);
}

std::optional<std::string> BundlesOnDisk::bundleIdentifierAt(std::string_view path) const {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    const auto found = bundles_.find(path);
    return found == bundles_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> BundlesOnDisk::nameOfBundle(std::string_view bundleIdentifier) const {
    for (const auto& [path, identifier] : bundles_)
        if (identifier == bundleIdentifier) return std::filesystem::path(path).stem().string();
    const auto application = applications_.find(bundleIdentifier);
    return application == applications_.end() ? std::nullopt : std::optional(application->second);
}

std::optional<std::string> nameOfApplication(std::string_view bundleIdentifier, const BundlesOnDisk& bundles,
                                             const ProcessTable& processes) {
    if (bundleIdentifier.empty()) return std::nullopt;
    const auto running = processes.withBundle(bundleIdentifier);
    if (running.empty()) return bundles.nameOfBundle(bundleIdentifier);
    return processes.find(running.front())->application.name;
}

} // namespace mac_model
