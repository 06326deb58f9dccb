#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "discovery/menu_bar_item.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tavrin {

/// What the manager publishes and the views show. Written by the manager's collaborators. Main thread.
struct MenuBarState {
    Published<bool> isCollapsed{false};
    Published<bool> isTrayVisible{false};
    Published<std::vector<MenuBarItem>> detectedItems;      // the last scan, in its order
    Published<std::set<std::string>> hiddenItemIdentifiers; // what the user wants hidden
    Published<bool> isScanning{false};
    Published<bool> isApplyingConfiguration{false};
    Published<std::string> applyProgress;
    Published<std::optional<std::string>> errorMessage; // the last failure, one sentence for the user

    /// A scan has finished, with Accessibility trust, and nothing has made it void since.
    bool hasCompletedScan = false;
    std::optional<Seconds> lastExpandUptime;

    /// Calls `handler` after each change of any published value.
    std::vector<Subscription> onAnyChange(const std::function<void()>& handler) {
        const auto call = [handler](const auto&) { handler(); };
        std::vector<Subscription> subscriptions;
        const auto add = [&](auto& published) { subscriptions.push_back(published.subscribe(call)); };
        add(isCollapsed);
        add(isTrayVisible);
        add(detectedItems);
        add(hiddenItemIdentifiers);
        add(isScanning);
        add(isApplyingConfiguration);
        add(applyProgress);
        add(errorMessage);
        return subscriptions;
    }
};

} // namespace tavrin
