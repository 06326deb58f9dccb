#pragma once

#include "concurrency/signal.h"
#include "discovery/menu_bar_item.h"
#include "hiding/skerrow_policy.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// The values that the windows show of the menu bar, each read where its one owner keeps it.
struct BarReadings {
    const Published<bool>& isCollapsed;
    const Published<std::vector<MenuBarItem>>& detectedItems; // those of the last scan, in its order
    const Published<HiddenSet>& hiddenItemIdentifiers;        // what the user wants hidden
    const Published<bool>& isScanning;
    const Published<bool>& isApplyingConfiguration;
    const Published<std::string>& applyProgress;
    const Published<std::optional<std::string>>& errorMessage; // the last failure, one sentence for the user

    /// Calls `handler` after each change of any of them.
    std::vector<Subscription> onAnyChange(const std::function<void()>& handler) const {
        std::vector<Subscription> subscriptions;
        const auto add = [&](const auto&... published) {
            (subscriptions.push_back(published.subscribe([handler](const auto&) { handler(); })), ...);
        };
        add(isCollapsed, detectedItems, hiddenItemIdentifiers, isScanning, isApplyingConfiguration,
            applyProgress, errorMessage);
        return subscriptions;
    }
};

} // namespace tavrin
