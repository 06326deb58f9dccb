#include "native/expanded_rescue.h"

#include "base/ascii.h"
#include "concurrency/waits.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "native/policy/native_visibility_policy.h"
#include "native/policy/notch_rescue_policy.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/workspace.h"

#include <algorithm>
#include <iterator>

namespace tavrin {

namespace {

using Latch = NativeExpandedRescueLatch;
using Items = std::vector<MenuBarItemSnapshot>;

/// What macOS keeps in its place can't be withheld, and Tavrin's own items mustn't.
Items rescuable(Items trapped, const std::string& ownBundleIdentifier) {
    std::erase_if(trapped, [&](const auto& item) {
        return !item.isMovable || !NativeVisibilityPolicy::canWithhold(item.id) ||
               item.bundleIdentifier == ownBundleIdentifier;
    });
    return trapped;
}

std::set<std::string> unitsOf(const Items& items) {
    std::set<std::string> units;
    for (const auto& item : items) units.insert(NativeVisibilityPolicy::unitOf(item.id));
    return units;
}

} // namespace

ExpandedRescue::ExpandedRescue(const Uses& uses)
    : uses_(uses)
    , scanBegin_(uses.inventory.isScanning().subscribe([this](const bool& isScanning) {
        if (isScanning) isScanRestricted_ = !uses_.keeper.isIdle();
    }))
    , restrictionChange_(uses.keeper.changed.subscribe([this] { isScanRestricted_ = true; }))
    , scanEnd_(uses.inventory.onScanCompleted([this](const ScanResult& scan) { noteScan(scan); })) {
    uses_.latch.identifiers = uses.settings.strings(Settings::rescuedItemIdentifiersKey);
}

void ExpandedRescue::suspend() {
    rescanTask_.cancel();
    rescueScanTask_.cancel();
    const auto before = uses_.latch.identifiers;
    uses_.latch = {};
    storeIfChanged(before);
}

void ExpandedRescue::applicationsEnded() {
    const auto before = uses_.latch.identifiers;
    retainRunning();
    storeIfChanged(before);
    scanLater(endScanWait);
}

bool ExpandedRescue::isJudged(const ScanResult& scan) const {
    return !scan.isDenied && !uses_.activity.isCollapsed.get() && uses_.items.isBarVisible() &&
           std::ranges::any_of(uses_.platform.screens.screens(), MenuBarScreenGeometry::hasNotch);
}

void ExpandedRescue::noteScan(const ScanResult& scan) {
    if (isJudged(scan)) update(scan);
    uses_.restriction.sync();
}

/// A bar with a list in force shows too little to replace what is latched, or to measure items.
void ExpandedRescue::update(const ScanResult& scan) {
    const auto& items = scan.items;
    const bool isRestricted = isScanRestricted_ || !uses_.keeper.isIdle();
    const auto before = uses_.latch.identifiers;
    const auto screens = uses_.platform.screens.screens();
    const auto trapped = NotchRescuePolicy::trappedItems(items, screens);
    const auto lane = laneOf(scan, trapped);
    catalog_.merge(items);
    if (!isRestricted) catalog_.recordWidths(items);
    uses_.latch.latch(unitsOf(rescuable(trapped, uses_.platform.application.bundleIdentifier())),
                      isRestricted ? Latch::ReplacesExisting::No : Latch::ReplacesExisting::Yes, lane,
                      uses_.platform.scheduler.now());
    retainRunning();
    const bool isSuppressed = uses_.restriction.isSuppressed();
    const bool hasReleased = !isSuppressed && releaseFitting(lane);
    storeIfChanged(before);
    const auto wait = isSuppressed ? std::nullopt : nextLook(hasReleased);
    if (wait) rescanTask_ = start(uses_.platform.scheduler, scanAfter(*wait));
}

bool ExpandedRescue::releaseFitting(const std::optional<LaneLayout>& lane) {
    return lane && uses_.latch.releaseFitting(*lane, catalog_.measures(),
                                              catalog_.releaseOrder(uses_.latch.identifiers),
                                              uses_.platform.scheduler.now());
}

void ExpandedRescue::retainRunning() {
    std::set<std::string> bundles;
    std::set<ProcessIdentifier> processes;
    for (const auto& application : uses_.platform.workspace.runningApplications()) {
        processes.insert(application.processIdentifier);
        if (application.bundleIdentifier) bundles.insert(lowercasedAscii(*application.bundleIdentifier));
    }
    catalog_.retain(processes);
    uses_.latch.retain(bundles);
}

std::optional<LaneLayout> ExpandedRescue::laneOf(const ScanResult& scan, const Items& trapped) const {
    auto frames = scan.clockFrames;
    for (const auto& item : scan.items)
        if (std::ranges::find(trapped, item.identity(), &MenuBarItemSnapshot::identity) == trapped.end())
            frames.push_back(item.frame);
    if (const auto control = uses_.items.validControlGlyphFrame()) frames.push_back(*control);
    return laneLayout(frames, uses_.platform.screens.screens());
}

/// None when there is nothing to wait for.
std::optional<Seconds> ExpandedRescue::nextLook(bool hasReleased) const {
    if (hasReleased) return releaseScanWait;
    if (const auto& pending = uses_.latch.pendingRelease) {
        const auto judgement = pending->time + Latch::releaseTime + judgementMargin;
        return std::max(judgement - uses_.platform.scheduler.now(), judgementMargin);
    }
    if (!uses_.latch.unconfirmedIdentifiers.empty()) return unconfirmedScanWait;
    return std::nullopt;
}

/// The list is read back at the next start, should this run end without its leave.
void ExpandedRescue::storeIfChanged(const std::set<std::string>& before) {
    const auto& units = uses_.latch.identifiers;
    if (units != before) uses_.settings.setStrings(Settings::rescuedItemIdentifiersKey, units);
}

void ExpandedRescue::scanLater(Seconds wait) {
    const bool hasNotch =
        std::ranges::any_of(uses_.platform.screens.screens(), MenuBarScreenGeometry::hasNotch);
    if (hasNotch && !uses_.activity.isCollapsed.get())
        rescueScanTask_ = start(uses_.platform.scheduler, scanAfter(wait));
}

Task<> ExpandedRescue::scanAfter(Seconds wait) {
    if (co_await sleepFor(wait) == Wake::CutShort || uses_.activity.isCollapsed.get()) co_return;
    co_await uses_.inventory.refreshItemsNow();
}

} // namespace tavrin
