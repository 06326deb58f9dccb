#pragma once

#include "desktop/desktop_file.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mac_model {

/// Versions, bundles on disk and links.
class WorkspaceModel {
  public:
    WorkspaceModel(MacOSVersion version, std::map<std::string, std::string> bundles)
        : version_(version)
        , bundles_(bundles.begin(), bundles.end()) {}

    MacOSVersion version() const { return version_; }

    std::optional<std::string> bundleIdentifierAt(std::string_view path) const;

    /// What the bundle with the identifier is called on the disk; none when there is none.
    std::optional<std::string> nameOfBundle(std::string_view bundleIdentifier) const;

    /// Opens the link, in the world; false when nothing handles it. Set by who draws System Settings.
    std::function<bool(const std::string& url)> openUrl;

  private:
    MacOSVersion version_;
    std::map<std::string, std::string, std::less<>> bundles_;
};

} // namespace mac_model
