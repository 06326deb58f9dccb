#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mac_model {

/// The bundles on disk, running or not.
class BundlesOnDisk {
  public:
    explicit BundlesOnDisk(const std::map<std::string, std::string>& bundles)
        : bundles_(bundles.begin(), bundles.end()) {}

    std::optional<std::string> bundleIdentifierAt(std::string_view path) const;

    /// The name on the disk of the bundle with this identifier; none when there is no such bundle.
    std::optional<std::string> nameOfBundle(std::string_view bundleIdentifier) const;

  private:
    std::map<std::string, std::string, std::less<>> bundles_; // identifiers by path
};

} // namespace mac_model
