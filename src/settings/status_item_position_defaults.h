#pragma once

#include "platform/defaults.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavrin {

/// The places that macOS keeps for status items, by autosave name: in the application's own preferences and,
/// under a variant of the name, in this computer's global ones. A larger position is further left. macOS
/// reads a place when an item gets its name; changing it afterwards moves nothing.
class StatusItemPositionDefaults {
  public:
    enum class Force { No, Yes };

    explicit StatusItemPositionDefaults(Defaults& defaults);

    /// The variant of a name in the global preferences: "a_Bc" reads "a_bc_v6".
    static std::string byHostAutosaveName(std::string_view autosaveName);

    /// The stored position under either form of the key; none when there is none, or what is stored is no
    /// number.
    std::optional<double> preferredPosition(std::string_view autosaveName) const;

    /// Stores a position; without force only where nothing is stored, not even a value of another type.
    void seed(std::string_view autosaveName, Force force, double position);

    /// Deletes all that is kept for the names that `selects` picks.
    void remove(const std::function<bool(std::string_view autosaveName)>& selects);

    /// Since macOS 26 Control Center keeps a flag for each name, and a stale one hides an item that the user
    /// never switched off. It is read when the item is created.
    void forgetHidingFlag(std::string_view autosaveName);

    /// Deletes what is kept for Tavrin's own items under earlier versions than `currentVersion`, except for
    /// names in `currentAutosaveNames`.
    void removeSuperseded(std::span<const std::string> currentAutosaveNames, std::int64_t currentVersion);

  private:
    bool hasValue(std::string_view autosaveName) const;
    void removeIfFalse(const DefaultsDomain& domain, const std::string& key);
    void removeIn(const DefaultsDomain& domain, std::string_view nameSuffix,
                  const std::function<bool(std::string_view)>& selects);

    Defaults& defaults_;
    DefaultsDomain own_;
    DefaultsDomain global_{.name = ".GlobalPreferences", .host = DefaultsDomain::Host::Current};
};

/// The autosave names of Tavrin's status items under a version.
namespace StatusItemAutosaveName {
std::string control(std::int64_t version);
std::string spacer(std::int64_t version);
/// An item of older releases whose place passes on to the control.
std::string legacySeparator(std::int64_t version);

/// The version in one of Tavrin's names; none for any other name.
std::optional<std::int64_t> version(std::string_view autosaveName);
} // namespace StatusItemAutosaveName

} // namespace tavrin
