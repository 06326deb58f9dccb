#include "hiding/item_inventory.h"

#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <utility>

namespace tavrin {

ItemInventory::ItemInventory(const Platform& platform, MenuBarState& state,
                             AccessibilityPermission& permission, const OwnStatusItems& ownItems)
    : platform_(platform)
    , state_(state)
    , permission_(permission)
    , ownItems_(ownItems)
    , scanner_(platform.scheduler, platform.accessibility, platform.defaults, platform.workspace,
               platform.text)
    , queue_(platform.scheduler.makeSerialQueue("tavrin.scan")) {}

Task<> ItemInventory::refreshItemsNow() {
    if (scanTask_.isRunning()) {
        needsRescan_ = true;
    } else {
        scanTask_ = start(platform_.scheduler, scanUntilCurrent());
    }
    co_await scanTask_.result();
}

void ItemInventory::refreshItems() { refreshTask_ = start(platform_.scheduler, refreshInBackground()); }

Task<> ItemInventory::refreshInBackground() { co_await refreshItemsNow(); }

void ItemInventory::invalidate() {
    state_.hasCompletedScan = false;
    state_.detectedItems.set({});
}

Task<> ItemInventory::scanUntilCurrent() {
    state_.isScanning.set(true);
    do {
        needsRescan_ = false;
        co_await scanOnce();
    } while (needsRescan_ && !co_await isCancelled());
    state_.isScanning.set(false);
}

Task<> ItemInventory::scanOnce() {
    permission_.refresh();
    if (!permission_.isTrusted()) {
        invalidate();
        co_return;
    }
    auto found = co_await runOn(*queue_, [&scanner = scanner_, applications = applicationsToScan(),
                                          boundaryX = ownItems_.boundaryX()](const AbandonFlag& abandoned) {
        return scanner.scan(applications, boundaryX, abandoned);
    });
    if (!found) co_return;
    permission_.refresh();
    if (!permission_.isTrusted()) {
        invalidate();
        co_return;
    }
    publish(std::move(*found));
}

std::vector<RunningApplicationSnapshot> ItemInventory::applicationsToScan() const {
    std::vector<RunningApplicationSnapshot> applications;
    const auto own = platform_.application.processIdentifier();
    for (auto& running : platform_.workspace.runningApplications()) {
        if (!running.bundleIdentifier || running.processIdentifier <= 0 || running.processIdentifier == own)
            continue;
        applications.push_back({.bundleIdentifier = std::move(*running.bundleIdentifier),
                                .processIdentifier = running.processIdentifier,
                                .localizedName = std::move(running.localizedName)});
    }
    return applications;
}

void ItemInventory::publish(std::vector<MenuBarItemSnapshot> snapshots) {
    std::vector<MenuBarItem> items;
    for (auto& snapshot : snapshots) {
        IconOfApplication icon{snapshot.bundleIdentifier};
        items.push_back({std::move(snapshot), std::move(icon)});
    }
    state_.hasCompletedScan = true;
    state_.detectedItems.set(std::move(items));
}

} // namespace tavrin
