#pragma once

#include "desktop/desktop_file.h"
#include "system/process_table.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mac_model {

/// The bundles on disk, running or not: those that the desktop file names, and its applications, whose paths
/// nobody knows.
class BundlesOnDisk {
  public:
    explicit BundlesOnDisk(const DesktopFile&);

    std::optional<std::string> bundleIdentifierAt(std::string_view path) const;

    /// The name on the disk of the bundle with this identifier; none when there is no such bundle.
    std::optional<std::string> nameOfBundle(std::string_view bundleIdentifier) const;

  private:
    std::map<std::string, std::string, std::less<>> bundles_;      // identifiers by path
    std::map<std::string, std::string, std::less<>> applications_; // names by identifier
};

/// The name of the application with this identifier, running or on the disk; none when it isn't installed.
std::optional<std::string> nameOfApplication(std::string_view bundleIdentifier, const BundlesOnDisk&,
                                             const ProcessTable&);

} // namespace mac_model
