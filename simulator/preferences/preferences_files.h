#pragma once

#include "platform/defaults.h"
#include "preferences/whole_file.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace mac_model {

/// One domain as a profile keeps it.
struct StoredDomain {
    tavrin::DefaultsDictionary values;
    std::set<std::string, std::less<>> removed; // keys that the desktop file must not bring back
};

/// The preferences in a profile folder: `Preferences/<domain>.json` and `Preferences/ByHost/<domain>.json`,
/// each an object of values (defaults_json.h) in which {"$removed": true} stands for a removed key. Errors
/// are one sentence for the user that names the path. The profile belongs to this object for as long as it
/// lives; another that opens it meanwhile is refused.
class PreferencesFiles {
  public:
    /// Makes the folders, if need be, takes the profile for this process, and tries whether it can be written
    /// to.
    static std::expected<PreferencesFiles, std::string> open(const std::filesystem::path& profile);

    std::expected<std::map<DefaultsDomain, StoredDomain>, std::string> readAll() const;
    std::expected<void, std::string> write(const DefaultsDomain&, const StoredDomain&) const;

  private:
    using Host = DefaultsDomain::Host;

    PreferencesFiles(std::filesystem::path folder, FolderLock lock)
        : folder_(std::move(folder))
        , lock_(std::move(lock)) {}

    std::filesystem::path folderOf(Host host) const;
    std::expected<void, std::string> readFolder(Host, std::map<DefaultsDomain, StoredDomain>&) const;

    std::filesystem::path folder_;
    FolderLock lock_;
};

} // namespace mac_model
