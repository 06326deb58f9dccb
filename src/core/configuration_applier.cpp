#include "core/configuration_applier.h"

#include "concurrency/waits.h"
#include "discovery/menu_bar_item_scan_policy.h"
#include "platform/screens.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// The published signs of an apply, which go with it however it ends.
class ApplyingSigns {
  public:
    explicit ApplyingSigns(MenuBarState& state) : state_(state) {
        state_.errorMessage.set(std::nullopt);
        state_.isApplyingConfiguration.set(true);
    }

    ApplyingSigns(const ApplyingSigns&) = delete;
    ApplyingSigns& operator=(const ApplyingSigns&) = delete;

    ~ApplyingSigns() {
        state_.applyProgress.set({});
        state_.isApplyingConfiguration.set(false);
    }

  private:
    MenuBarState& state_;
};

std::string progressText(const MenuBarItemSnapshot& item, int attempt) {
    return "Placing " + item.name + " (attempt " + std::to_string(attempt) + ")…";
}

} // namespace

ConfigurationApplier::ConfigurationApplier(const Platform& platform, MenuBarState& state,
                                           MenuBarRuntimeMode mode, AccessibilityPermission& permission,
                                           OwnStatusItems& items, StatusItemGeometryKeeper& geometry,
                                           ItemInventory& inventory, HidingController& hiding,
                                           MenuBarItemReader& reader, MenuBarItemMover& mover,
                                           ArrangeHostedItems arrangeHostedItemsAroundControl)
    : platform_(platform)
    , state_(state)
    , mode_(mode)
    , permission_(permission)
    , items_(items)
    , geometry_(geometry)
    , inventory_(inventory)
    , hiding_(hiding)
    , reader_(reader)
    , mover_(mover)
    , arrangeHostedItemsAroundControl_(std::move(arrangeHostedItemsAroundControl)) {}

void ConfigurationApplier::applyConfigurationAndHide() {
    permission_.refresh();
    if (!permission_.isTrusted()) {
        state_.errorMessage.set("Grant Accessibility access before applying this configuration.");
        return;
    }
    pendingConfigurationTask_ = start(platform_.scheduler, perform());
}

Task<std::optional<ApplyOutcome>> ConfigurationApplier::applyConfiguration() {
    pendingConfigurationTask_ = start(platform_.scheduler, perform());
    co_return co_await pendingConfigurationTask_.result();
}

Task<ApplyOutcome> ConfigurationApplier::perform() {
    std::optional<ApplyingSigns> signs(state_);
    co_await prepare();
    if (co_await isCancelled()) co_return ApplyOutcome::incomplete;
    Failures failures;
    // Where macOS itself hides, the side that an item is on means nothing.
    if (mode_ == MenuBarRuntimeMode::divider) failures = co_await performMoves();
    if (co_await isCancelled()) co_return ApplyOutcome::incomplete;
    signs.reset();
    co_return finish(failures);
}

Task<> ConfigurationApplier::prepare() {
    if (state_.isCollapsed.get()) hiding_.expand(Persist::No);
    const bool isArranged = co_await arrange();
    if (isArranged && co_await sleepFor(settleWait) == Wake::CutShort) co_return;
    co_await inventory_.refreshItemsNow();
}

Task<bool> ConfigurationApplier::arrange() {
    if (mode_ == MenuBarRuntimeMode::divider) co_return co_await geometry_.ensureExpandedStatusItemGeometry();
    if (!arrangeHostedItemsAroundControl_) co_return false;
    co_return co_await arrangeHostedItemsAroundControl_();
}

/// In the order of a scan, which lists what is visible first, the items to hide come before those to show. So
/// they should: each that leaves the visible side lets the control move to the right, away from the notch,
/// and there is room beside it when the others arrive.
std::vector<ConfigurationApplier::PlannedMove> ConfigurationApplier::plannedMoves() const {
    std::vector<PlannedMove> moves;
    for (const auto& assignment : hiding_.collapsePolicy().assignments()) {
        if (assignment.desiredZone == assignment.physicalZone) continue;
        moves.push_back({*detected(assignment.itemIdentifier), assignment.desiredZone});
    }
    return moves;
}

Task<ConfigurationApplier::Failures> ConfigurationApplier::performMoves() {
    Failures failures;
    const auto moves = plannedMoves();
    for (const auto& move : moves) {
        auto outcome = co_await place(move);
        if (co_await isCancelled()) co_return failures;
        if (outcome) continue;
        failures.push_back({move.item.id, {move.item.name, move.targetZone, std::move(outcome.error())}});
    }
    co_await inventory_.refreshItemsNow();
    addUnplaced(failures);
    co_return failures;
}

Task<ConfigurationApplier::MoveOutcome> ConfigurationApplier::place(PlannedMove move) {
    for (int attempt = 1; attempt <= attemptsMax; ++attempt) {
        if (const auto* present = detected(move.item.id)) move.item = *present;
        state_.applyProgress.set(progressText(move.item, attempt));
        const auto geometry = currentMoveGeometry();
        if (!geometry) co_return std::unexpected("the menu bar control was unavailable.");
        const auto result = co_await mover_.move(move.item, move.targetZone, *geometry);
        if (co_await isCancelled()) co_return {};
        if (auto detail = moveFailureDetail(result, move.targetZone))
            co_return std::unexpected(std::move(*detail));
        if (result == MenuBarMoveResult::alreadyPlaced) co_return {};
        if (co_await waitForMoveVerification(move.item, move.targetZone)) {
            co_await inventory_.refreshItemsNow();
            co_return {};
        }
    }
    co_return std::unexpected(refusedMoveDetail(move.targetZone));
}

Task<bool> ConfigurationApplier::waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone) {
    for (int check = 0; check < verificationChecksMax; ++check) {
        if (co_await sleepFor(verificationInterval) == Wake::CutShort) co_return false;
        const auto frame = co_await reader_.currentFrame(item);
        if (!frame) co_return false;
        if (MenuBarItemScanPolicy::zone(*frame, items_.boundaryX()) == targetZone) co_return true;
    }
    co_return false;
}

/// Items that the moves of others took along, or that only the last scan has found.
void ConfigurationApplier::addUnplaced(Failures& failures) const {
    for (const auto& [identifier, zone, present] : hiding_.collapsePolicy().pendingMoves()) {
        if (std::ranges::find(failures, identifier, &Failures::value_type::first) != failures.end()) continue;
        failures.push_back({identifier, {detected(identifier)->name, zone, refusedMoveDetail(zone)}});
    }
}

ApplyOutcome ConfigurationApplier::finish(const Failures& failures) {
    if (!failures.empty()) {
        std::vector<ConfigurationFailure> told;
        for (const auto& [identifier, failure] : failures) told.push_back(failure);
        state_.errorMessage.set(failureSummary(told));
        return ApplyOutcome::incomplete;
    }
    return hiding_.collapse(Persist::Yes) ? ApplyOutcome::hidden : ApplyOutcome::incomplete;
}

const MenuBarItemSnapshot* ConfigurationApplier::detected(const std::string& identifier) const {
    const auto& items = state_.detectedItems.get();
    const auto found =
        std::ranges::find(items, identifier, [](const auto& item) { return item.snapshot.id; });
    return found == items.end() ? nullptr : &found->snapshot;
}

std::optional<MenuBarMoveGeometry> ConfigurationApplier::currentMoveGeometry() const {
    const auto control = items_.controlFrame();
    const auto glyph = items_.controlGlyphFrame();
    if (!control || !glyph || !control->isFinite() || control->width <= 0 || control->height <= 0)
        return std::nullopt;
    const auto screens = platform_.screens.screens();
    std::vector<Rect> visible;
    for (const auto& item : state_.detectedItems.get()) {
        if (item.snapshot.zone == MenuBarZone::visible) visible.push_back(item.snapshot.frame);
    }
    return MenuBarMoveGeometry{.controlFrame = *control,
                               .glyphWidth = glyph->width,
                               .visibleNeighborAccessibilityFrame =
                                   MenuBarMove::visibleNeighbor(visible, *glyph, screens),
                               .screens = screens,
                               .spacerFrame = items_.spacerFrame()};
}

} // namespace tavrin
