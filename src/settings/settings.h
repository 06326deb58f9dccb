#pragma once

#include "platform/defaults.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace tavrin {

/// The hiding core's settings in the application's own preferences. A stored value of another type than the
/// setting's reads as the setting's default; it stays stored until the setting is written.
class Settings {
  public:
    static constexpr std::string_view hiddenItemIdentifiersKey = "Skerrow.hiddenItemIdentifiers";
    static constexpr std::string_view didPresentInitialConfigurationKey =
        "Skerrow.didPresentInitialConfiguration";
    static constexpr std::string_view shouldStartCollapsedKey = "Skerrow.shouldStartCollapsed";
    static constexpr std::string_view pendingFirstRunHintKey = "Skerrow.pendingFirstRunHint";
    static constexpr std::string_view statusItemAutosaveVersionKey = "Skerrow.statusItemAutosaveVersion";
    static constexpr std::string_view rescuedItemIdentifiersKey = "Skerrow.rescuedItemIdentifiers.v2";
    static constexpr std::string_view legacyRescuedItemIdentifiersKey = "Skerrow.rescuedItemIdentifiers";

    explicit Settings(Defaults& defaults) : defaults_(defaults), domain_(defaults.ownDomain()) {}

    /// False unless a boolean or a number other than 0 is stored.
    bool boolean(std::string_view key) const;
    void setBoolean(std::string_view key, bool value);

    /// The strings of a stored array; empty when no array is stored. Elements of other types are passed over.
    std::set<std::string> strings(std::string_view key) const;
    /// Stores the strings ascending.
    void setStrings(std::string_view key, const std::set<std::string>& values);

    /// At least 1.
    std::int64_t statusItemAutosaveVersion() const;
    void setStatusItemAutosaveVersion(std::int64_t version);

    bool hasValue(std::string_view key) const { return defaults_.value(domain_, key).has_value(); }

    void remove(std::string_view key) { defaults_.remove(domain_, key); }

  private:
    Defaults& defaults_;
    DefaultsDomain domain_;
};

} // namespace tavrin
