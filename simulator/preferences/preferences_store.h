#pragma once

#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "platform/defaults.h"
#include "preferences/preferences_files.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// All preferences domains of this Mac. With a profile folder they outlive it: `Preferences/<domain>.json`
/// and `Preferences/ByHost/<domain>.json`, replaced whole (written beside, flushed, renamed) a moment after a
/// change, at `flush` and at the end. Values of the desktop file stand where the profile has none; one that
/// was removed stays removed.
class PreferencesStore {
  public:
    /// Without a profile nothing is kept. The error is one sentence that names the path; nothing was
    /// overwritten.
    static std::expected<std::unique_ptr<PreferencesStore>, std::string>
    create(VirtualScheduler&, const std::optional<std::filesystem::path>& profile, const DesktopFile&);

    PreferencesStore(const PreferencesStore&) = delete;
    PreferencesStore& operator=(const PreferencesStore&) = delete;
    ~PreferencesStore();

    std::optional<DefaultsValue> value(const DefaultsDomain&, std::string_view key) const;
    /// The value as a number when it is an integer or a real.
    std::optional<double> number(const DefaultsDomain&, std::string_view key) const;
    std::optional<bool> boolean(const DefaultsDomain&, std::string_view key) const;
    void set(const DefaultsDomain&, std::string_view key, DefaultsValue);
    void remove(const DefaultsDomain&, std::string_view key);

    std::vector<std::string> keys(const DefaultsDomain&) const;
    std::vector<DefaultsDomain> domains() const;
    /// The domain as JSON for a person: data values as base64 under "$data".
    nlohmann::json describe(const DefaultsDomain&) const;

    /// Writes what has changed. Call it at the end of each command, too: virtual time may stand still for
    /// long.
    void flush();
    void flush(const DefaultsDomain&);

    /// Why the last write failed; none after one that succeeded. Changes stay in memory and are tried again.
    const std::optional<std::string>& lastWriteError() const { return lastWriteError_; }

  private:
    struct Domain {
        tavrin::DefaultsDictionary values;
        std::set<std::string, std::less<>> removed; // keys that the desktop file must not bring back
        std::set<std::string, std::less<>> seeded;  // keys of the desktop file
        bool isDirty = false;
    };

    PreferencesStore(VirtualScheduler&, std::optional<PreferencesFiles>);
    std::expected<void, std::string> load();
    void seed(const PreferenceDomains&, DefaultsDomain::Host);
    void touch(Domain&);
    void write(const DefaultsDomain&, Domain&);

    WorldCalls world_;
    std::optional<PreferencesFiles> files_;
    std::map<DefaultsDomain, Domain> domains_;
    std::optional<std::string> lastWriteError_;
    bool isWritePending_ = false;
};

} // namespace mac_model
