#include "core/item_placer.h"

#include "concurrency/waits.h"
#include "discovery/menu_bar_item_scan_policy.h"

#include <algorithm>

namespace tavrin {

namespace {

std::string progressText(const MenuBarItemSnapshot& item, int attempt) {
    return "Placing " + item.name + " (attempt " + std::to_string(attempt) + ")…";
}

} // namespace

/// Clears the progress however the placing ends.
class ItemPlacer::ProgressSign {
  public:
    explicit ProgressSign(Published<std::string>& progress) : progress_(progress) {}

    ProgressSign(const ProgressSign&) = delete;
    ProgressSign& operator=(const ProgressSign&) = delete;

    ~ProgressSign() { progress_.set({}); }

  private:
    Published<std::string>& progress_;
};

ItemPlacer::ItemPlacer(const Screens& screens, const OwnStatusItems& ownItems, ItemInventory& inventory,
                       const HiddenItems& hiddenItems, ItemMovement& movement)
    : screens_(screens)
    , ownItems_(ownItems)
    , inventory_(inventory)
    , hiddenItems_(hiddenItems)
    , movement_(movement) {}

Task<std::vector<ConfigurationFailure>> ItemPlacer::placeAll() {
    const ProgressSign sign(progress_);
    const auto failures = co_await performMoves();
    std::vector<ConfigurationFailure> told;
    for (const auto& [identifier, failure] : failures) told.push_back(failure);
    co_return told;
}

/// In the order of a scan, which lists what is visible first, the items to hide come before those to show. So
/// they should: each that leaves the visible side lets the control move to the right, away from the notch,
/// and there is room beside it when the others arrive.
std::vector<ItemPlacer::PlannedMove> ItemPlacer::plannedMoves() const {
    std::vector<PlannedMove> moves;
    for (const auto& assignment : policy().assignments()) {
        if (assignment.desiredZone == assignment.physicalZone) continue;
        moves.push_back({*detected(assignment.itemIdentifier), assignment.desiredZone});
    }
    return moves;
}

Task<ItemPlacer::Failures> ItemPlacer::performMoves() {
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

Task<ItemPlacer::MoveOutcome> ItemPlacer::place(PlannedMove move) {
    for (int attempt = 1; attempt <= attemptsMax; ++attempt) {
        if (const auto* present = detected(move.item.id)) move.item = *present;
        progress_.set(progressText(move.item, attempt));
        const auto geometry = currentMoveGeometry();
        if (!geometry) co_return std::unexpected("the menu bar control was unavailable.");
        const auto result = co_await movement_.mover().move(move.item, move.targetZone, *geometry);
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

Task<bool> ItemPlacer::waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone) {
    for (int check = 0; check < verificationChecksMax; ++check) {
        if (co_await sleepFor(verificationInterval) == Wake::CutShort) co_return false;
        const auto frame = co_await movement_.reader().currentFrame(item);
        if (!frame) co_return false;
        if (MenuBarItemScanPolicy::zone(*frame, ownItems_.boundaryX()) == targetZone) co_return true;
    }
    co_return false;
}

/// Items that the moves of others took along, or that only the last scan has found.
void ItemPlacer::addUnplaced(Failures& failures) const {
    for (const auto& [identifier, zone, present] : policy().pendingMoves()) {
        if (std::ranges::find(failures, identifier, &Failures::value_type::first) != failures.end()) continue;
        failures.push_back({identifier, {detected(identifier)->name, zone, refusedMoveDetail(zone)}});
    }
}

const MenuBarItemSnapshot* ItemPlacer::detected(const std::string& identifier) const {
    const auto& items = inventory_.items().get();
    const auto found =
        std::ranges::find(items, identifier, [](const auto& item) { return item.snapshot.id; });
    return found == items.end() ? nullptr : &found->snapshot;
}

std::optional<MenuBarMoveGeometry> ItemPlacer::currentMoveGeometry() const {
    const auto control = ownItems_.controlFrame();
    const auto glyph = ownItems_.controlGlyphFrame();
    if (!control || !glyph || !control->isFinite() || control->width <= 0 || control->height <= 0)
        return std::nullopt;
    const auto screens = screens_.screens();
    std::vector<Rect> visible;
    for (const auto& item : inventory_.items().get()) {
        if (item.snapshot.zone == MenuBarZone::visible) visible.push_back(item.snapshot.frame);
    }
    return MenuBarMoveGeometry{.controlFrame = *control,
                               .glyphWidth = glyph->width,
                               .visibleNeighborAccessibilityFrame =
                                   MenuBarMove::visibleNeighbor(visible, *glyph, screens),
                               .screens = screens,
                               .spacerFrame = ownItems_.spacerFrame()};
}

} // namespace tavrin
