#include "discovery/item_inventory.h"

#include "concurrency/waits.h"
#include "discovery/system_menu_extra_catalog.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <string>
#include <utility>
#include <vector>

namespace tavrin {

namespace {

/// Many of Apple's extras belong to one application, whose icon tells nobody which is which.
MenuBarItemIcon iconOf(const MenuBarItemSnapshot& item) {
    const auto symbol = SystemMenuExtraCatalog::symbol(item.accessibilityIdentifier.value_or(""));
    if (symbol && item.bundleIdentifier.starts_with("com.apple.")) return std::string(*symbol);
    return IconOfApplication{item.bundleIdentifier};
}

} // namespace

ItemInventory::ItemInventory(const Platform& platform, AccessibilityPermission& permission,
                             std::unique_ptr<BarScan> scan, std::function<HidingBoundary()> boundary)
    : platform_(platform)
    , permission_(permission)
    , boundary_(std::move(boundary))
    , scan_(std::move(scan))
    , permissionObservation_(permission.onChanged([this](const bool& isTrusted) {
        if (!isTrusted) invalidate();
    }))
    , queue_(platform.scheduler.makeSerialQueue("tavrin.scan")) {}

Task<> ItemInventory::refreshItemsNow() {
    if (scanTask_.isRunning()) {
        needsRescan_ = true;
    } else {
        scanTask_ = start(platform_.scheduler, scanUntilCurrent());
    }
    co_await scanTask_.result();
}

void ItemInventory::invalidate() {
    hasCompletedScan_ = false;
    items_.set({});
}

Task<> ItemInventory::scanUntilCurrent() {
    isScanning_.set(true);
    do {
        needsRescan_ = false;
        co_await scanOnce();
    } while (needsRescan_ && !co_await isCancelled());
    isScanning_.set(false);
}

Task<> ItemInventory::scanOnce() {
    if (isDenied()) co_return tellOfDenial();
    auto found = co_await runOn(*queue_, [&scan = *scan_, applications = applicationsToScan(),
                                          boundary = boundary_()](const AbandonFlag& abandoned) {
        return scan.scan(applications, boundary, abandoned);
    });
    if (!found) co_return;
    // A reading during which the trust was lost may have missed items.
    if (isDenied() || !*found) co_return tellOfDenial();
    publish(std::move(**found));
}

bool ItemInventory::isDenied() {
    permission_.refresh();
    return !permission_.isTrusted();
}

std::vector<RunningApplicationSnapshot> ItemInventory::applicationsToScan() const {
    std::vector<RunningApplicationSnapshot> applications;
    const auto own = platform_.application.processIdentifier();
    for (auto& running : platform_.workspace.runningApplications()) {
        if (!running.bundleIdentifier || running.processIdentifier <= 0 || running.processIdentifier == own)
            continue;
        applications.push_back({.bundleIdentifier = std::move(*running.bundleIdentifier),
                                .processIdentifier = running.processIdentifier,
                                .localizedName = std::move(running.localizedName),
                                .isRegular = running.isRegular});
    }
    return applications;
}

void ItemInventory::publish(ScanResult result) {
    std::vector<MenuBarItem> items;
    for (const auto& snapshot : result.items) items.push_back({snapshot, iconOf(snapshot)});
    hasCompletedScan_ = true;
    items_.set(std::move(items));
    scanCompleted_.emit(result);
}

void ItemInventory::tellOfDenial() {
    hasCompletedScan_ = false;
    scanCompleted_.emit({.items = {}, .isDenied = true});
}

} // namespace tavrin
