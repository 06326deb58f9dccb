#include "hiding/status_item_geometry_keeper.h"

#include "concurrency/wait_until.h"

#include <optional>
#include <utility>

namespace tavrin {

StatusItemGeometryKeeper::StatusItemGeometryKeeper(const Platform& platform, OwnStatusItems& items,
                                                   FailureMessage& failure)
    : platform_(platform)
    , items_(items)
    , failure_(failure) {}

Task<bool> StatusItemGeometryKeeper::ensureExpandedStatusItemGeometry() {
    if (!pendingStatusItemGeometryTask_.isRunning()) {
        pendingStatusItemGeometryTask_ =
            start(platform_.scheduler, performExpandedStatusItemGeometryRepair());
    }
    const auto answer = co_await pendingStatusItemGeometryTask_.result();
    co_return answer.value_or(false);
}

Task<bool> StatusItemGeometryKeeper::performExpandedStatusItemGeometryRepair() {
    if (!holdsOrIsUnseen()) {
        const bool isRepaired = co_await repair();
        if (co_await isCancelled()) co_return false;
        if (!isRepaired && !holdsOrIsUnseen()) {
            reportFailure();
            co_return false;
        }
    }
    // The old names may be the ones to go back to while nobody knows where the items are.
    if (holds()) items_.removeSupersededStatusItemDefaults();
    co_return true;
}

Task<bool> StatusItemGeometryKeeper::repair() {
    using enum OwnStatusItems::PositionSeed;
    // Displays that are away for a moment and a bar that is being arranged pass by themselves.
    if (co_await waitForStableStatusItemGeometry()) co_return true;
    if (!items_.isBarVisible()) co_return false;
    if (items_.isKeptOutOfMenuBar()) co_return false; // a new one would lose its place, and be kept out, too
    // A control in the status area is where its user has put it, and only the spacer has to follow.
    if (hasValidGlyph() && co_await reseatSpacer()) co_return true;
    if (co_await isCancelled() || !items_.isBarVisible()) co_return false;
    if (co_await rebuild(Force)) co_return true;
    // A control behind the notch stays there under any name; one left of its own spacer was taken for new.
    if (items_.isSpacerLeftOfControl() || co_await isCancelled() || !items_.isBarVisible()) co_return false;
    co_return co_await rebuild(ForceBesideZero);
}

Task<bool> StatusItemGeometryKeeper::rebuild(OwnStatusItems::PositionSeed controlSeed) {
    items_.removeStatusItems();
    items_.advanceAutosaveVersion();
    items_.configureStatusItems(controlSeed);
    if (co_await sleepFor(rebuildWait) == Wake::CutShort) co_return false;
    if (holds()) co_return true;
    if (co_await waitForStableStatusItemGeometry()) co_return true;
    if (!hasValidGlyph() || co_await isCancelled()) co_return false;
    co_return co_await reseatSpacer();
}

Task<bool> StatusItemGeometryKeeper::waitForStableStatusItemGeometry() {
    co_await items_.waitForPlacement();
    using Frames = std::pair<std::optional<Rect>, std::optional<Rect>>;
    const auto isStable = [this, last = std::optional<Frames>()]() mutable {
        const auto present = std::optional(Frames(items_.controlFrame(), items_.spacerFrame()));
        return std::exchange(last, present) == present && holds();
    };
    co_return co_await waitUntil(platform_.scheduler, isStable, stablePollInterval, stableWaitMax) ==
        Waited::Met;
}

Task<bool> StatusItemGeometryKeeper::reseatSpacer() {
    items_.configureSpacerItem();
    if (co_await sleepFor(rebuildWait) == Wake::CutShort) co_return false;
    co_await items_.waitForPlacement();
    co_return holds();
}

void StatusItemGeometryKeeper::reportFailure() {
    if (items_.isKeptOutOfMenuBar()) return failure_.tell(items_.whyControlIsUnseen());
    failure_.tell(
        hasValidGlyph()
            ? "Tavrin couldn’t place its hidden boundary next to its menu bar icon. Quit and reopen the "
              "app to retry the layout repair."
            : "Tavrin couldn’t restore its menu bar control to the right side of the notch. Quit and "
              "reopen the app to retry the layout repair.");
}

} // namespace tavrin
