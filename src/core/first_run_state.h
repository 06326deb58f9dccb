#pragma once

#include "discovery/menu_bar_item.h"
#include "settings/settings.h"

#include <span>
#include <string_view>
#include <vector>

namespace tavrin {

/// What a fresh install starts with.
class FirstRunState {
  public:
    explicit FirstRunState(Settings& settings) : settings_(settings) {}

    /// Nothing was configured yet: neither was the configuration shown, nor is any choice stored, not even an
    /// empty one.
    bool isFreshInstall() const {
        return !settings_.boolean(Settings::didPresentInitialConfigurationKey) &&
               !settings_.hasValue(Settings::hiddenItemIdentifiersKey);
    }

    /// The default layout was chosen, and stored; from now on the install is fresh no longer.
    void recordDefaultLayout() { settings_.setBoolean(Settings::didPresentInitialConfigurationKey, true); }

    /// Every item of other applications that can be moved.
    static std::vector<MenuBarItem> itemsToHide(std::span<const MenuBarItem> items,
                                                std::string_view ownBundleIdentifier) {
        std::vector<MenuBarItem> chosen;
        for (const auto& item : items) {
            if (item.snapshot.isMovable && item.snapshot.bundleIdentifier != ownBundleIdentifier)
                chosen.push_back(item);
        }
        return chosen;
    }

  private:
    Settings& settings_;
};

} // namespace tavrin
