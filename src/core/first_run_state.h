#pragma once

#include "discovery/menu_bar_item.h"
#include "settings/settings.h"

#include <span>
#include <string_view>
#include <vector>

namespace tavrin {

/// Tells a fresh install from one in use, and chooses the items that a fresh one hides.
class FirstRunState {
  public:
    explicit FirstRunState(Settings& settings) : settings_(settings) {}

    /// Whether nothing was configured yet: the configuration was never shown, and no choice is stored, not
    /// even an empty one.
    bool isFreshInstall() const {
        return !settings_.boolean(Settings::didPresentInitialConfigurationKey) &&
               !settings_.hasValue(Settings::hiddenItemIdentifiersKey);
    }

    /// Notes that the default layout was chosen and stored; from now on the install is no longer fresh.
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
