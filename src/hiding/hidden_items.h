#pragma once

#include "concurrency/signal.h"
#include "discovery/menu_bar_item.h"
#include "hiding/skerrow_policy.h"
#include "settings/settings.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tavrin {

/// The items that the user wants hidden, stored at once after each change.
class HiddenItems {
  public:
    /// `ownBundleIdentifier` names the application whose items are never hidden.
    HiddenItems(Settings& settings, std::string ownBundleIdentifier);

    const Published<HiddenSet>& identifiers() const { return identifiers_; }

    bool contains(const MenuBarItemSnapshot& item) const {
        return isConfiguredHidden(item, identifiers_.get());
    }

    using Setting = std::function<HiddenSet(const std::string& identifier, bool hidden, const HiddenSet&)>;

    /// Changes whether these items are wanted hidden. `setting` gives the set after the change of one: others
    /// that can't but go with it change as well.
    void set(std::span<const std::string> identifiers, bool hidden, const Setting& setting = settingItem);

    /// Compares where `items` are with where the user wants them.
    SkerrowPolicy policyFor(std::span<const MenuBarItem> items) const {
        return SkerrowPolicy(items, identifiers_.get(), ownBundleIdentifier_);
    }

  private:
    Settings& settings_;
    std::string ownBundleIdentifier_;
    Published<HiddenSet> identifiers_;
};

} // namespace tavrin
