#pragma once

#include "platform/defaults.h"

namespace tavrin::macos {

/// The preferences domains of the user, through CFPreferences: a domain's own values, without those that a
/// search by NSUserDefaults would add from elsewhere.
class MacDefaults final : public Defaults {
  public:
    DefaultsDomain ownDomain() const override;
    std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const override;
    void set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) override;
    void remove(const DefaultsDomain& domain, std::string_view key) override;
    std::vector<std::string> keys(const DefaultsDomain& domain) const override;
    void synchronize(const DefaultsDomain& domain) override;
};

} // namespace tavrin::macos
