#include "core/item_placer.h"

#include "base/ascii.h"
#include "concurrency/waits.h"
#include "discovery/active_menu_bar.h"
#include "discovery/menu_bar_item_scan_policy.h"

#include <algorithm>
#include <utility>

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

Task<std::optional<std::vector<ConfigurationFailure>>> ItemPlacer::placeAll(PressDuringDrag press) {
    const ProgressSign sign(progress_);
    const auto attempts = co_await performMoves(press);
    if (!attempts) co_return std::nullopt;
    std::vector<ConfigurationFailure> failures;
    for (const auto& [move, detail] : *attempts) {
        if (detail && isWanted(move)) failures.push_back({move.item.name, move.targetZone, *detail});
    }
    co_return failures;
}

Task<std::optional<ItemPlacer::Attempts>> ItemPlacer::performMoves(PressDuringDrag press) {
    Attempts attempts;
    do {
        while (auto move = nextMove(attempts)) {
            auto placing = co_await place(*move, press);
            if (co_await isCancelled()) co_return attempts;
            if (placing.isStopped) co_return std::nullopt;
            std::erase_if(attempts, [&](const Attempt& earlier) {
                return earlier.move.item.identity() == move->item.identity();
            });
            if (isWanted(*move)) attempts.push_back({std::move(*move), std::move(placing.failureDetail)});
        }
        co_await inventory_.refreshItemsNow();
        if (co_await isCancelled()) co_return attempts;
    } while (nextMove(attempts));
    failUnplaced(attempts);
    co_return attempts;
}

/// In the order of a scan, which lists what is visible first, the items to hide come before those to show. So
/// they should: each that leaves the visible side lets the control move to the right, away from the notch,
/// and there is room beside it when the others arrive.
std::optional<ItemPlacer::PlannedMove> ItemPlacer::nextMove(const Attempts& attempts) const {
    for (const auto& assignment : policy().assignments()) {
        if (assignment.desiredZone == assignment.physicalZone) continue;
        const bool isTried = std::ranges::any_of(attempts, [&](const Attempt& attempt) {
            return attempt.move.item.identity() == assignment.identity() &&
                   attempt.move.targetZone == assignment.desiredZone;
        });
        if (!isTried) return PlannedMove{*detected(assignment.identity()), assignment.desiredZone};
    }
    return std::nullopt;
}

bool ItemPlacer::isWanted(const PlannedMove& move) const {
    return hiddenItems_.contains(move.item) == (move.targetZone == MenuBarZone::hidden);
}

Task<ItemPlacer::Placing> ItemPlacer::place(PlannedMove move, PressDuringDrag press) {
    for (int attempt = 1; attempt <= attemptsMax && isWanted(move); ++attempt) {
        if (const auto* present = detected(move.item.identity())) move.item = *present;
        progress_.set(progressText(move.item, attempt));
        const auto geometry = currentMoveGeometry();
        if (!geometry) co_return Placing{"the menu bar control was unavailable."};
        const auto result = co_await movement_.mover().move(move.item, move.targetZone, *geometry);
        if (co_await isCancelled()) co_return Placing{};
        if (result == MenuBarMoveResult::userPressed && press == PressDuringDrag::StopsAll)
            co_return Placing{.isStopped = true};
        if (auto detail = detailOf(result, move)) co_return Placing{std::move(detail)};
        if (result == MenuBarMoveResult::alreadyPlaced) co_return Placing{};
        if (co_await waitForMoveVerification(move.item, move.targetZone)) {
            co_await inventory_.refreshItemsNow();
            co_return Placing{};
        }
    }
    co_return Placing{refusedMoveDetail(move.targetZone)};
}

std::optional<std::string> ItemPlacer::detailOf(MenuBarMoveResult result, const PlannedMove& move) const {
    if (result == MenuBarMoveResult::itemUnavailable && sharesIdentifier(move.item))
        return sharedIdentifierDetail();
    return moveFailureDetail(result, move.targetZone);
}

bool ItemPlacer::sharesIdentifier(const MenuBarItemSnapshot& item) const {
    if (!item.accessibilityIdentifier) return false;
    const auto identifier = lowercasedAscii(*item.accessibilityIdentifier);
    return std::ranges::count_if(inventory_.items().get(), [&](const MenuBarItem& other) {
               const auto& own = other.snapshot.accessibilityIdentifier;
               return other.snapshot.processIdentifier == item.processIdentifier && own &&
                      lowercasedAscii(*own) == identifier;
           }) > 1;
}

Task<bool> ItemPlacer::waitForMoveVerification(MenuBarItemSnapshot item, MenuBarZone targetZone) {
    for (int check = 0; check < verificationChecksMax; ++check) {
        if (co_await sleepFor(verificationInterval) == Wake::CutShort) co_return false;
        const auto frame = co_await movement_.reader().currentFrame(item);
        if (!frame) co_return false;
        if (MenuBarItemScanPolicy::zone(*frame, boundaryX()) == targetZone) co_return true;
    }
    co_return false;
}

/// Items that were in their place and that the moves of others took along.
void ItemPlacer::failUnplaced(Attempts& attempts) const {
    for (const auto& assignment : policy().pendingMoves()) {
        const auto attempt = std::ranges::find(attempts, assignment.identity(),
                                               [](const Attempt& one) { return one.move.item.identity(); });
        if (attempt != attempts.end() && !attempt->failureDetail)
            attempt->failureDetail = refusedMoveDetail(assignment.desiredZone);
    }
}

const MenuBarItemSnapshot* ItemPlacer::detected(const MenuBarItemIdentity& identity) const {
    const MenuBarItemSnapshot* namesake = nullptr;
    int namesakes = 0;
    for (const auto& [snapshot, icon] : inventory_.items().get()) {
        if (snapshot.identity() == identity) return &snapshot;
        if (snapshot.id != identity.itemIdentifier) continue;
        namesake = &snapshot;
        ++namesakes;
    }
    return namesakes == 1 ? namesake : nullptr;
}

std::optional<MenuBarMoveGeometry> ItemPlacer::currentMoveGeometry() const {
    const auto control = ownItems_.controlFrame();
    const auto glyph = ownItems_.controlGlyphFrame();
    if (!control || !glyph || !control->isFinite() || control->width <= 0 || control->height <= 0)
        return std::nullopt;
    const auto screens = screens_.screens();
    const ActiveMenuBar bar(itemFrames(), *control, screens);
    std::vector<Rect> visible;
    for (const auto& item : inventory_.items().get()) {
        if (item.snapshot.zone == MenuBarZone::visible) visible.push_back(item.snapshot.frame);
    }
    const auto spacer = ownItems_.spacerFrame();
    return MenuBarMoveGeometry{.controlFrame = bar.placeOf(*control),
                               .glyphWidth = glyph->width,
                               .visibleNeighborAccessibilityFrame =
                                   MenuBarMove::visibleNeighbor(visible, bar.placeOf(*glyph), screens),
                               .screens = screens,
                               .spacerFrame = spacer ? std::optional(bar.placeOf(*spacer)) : std::nullopt};
}

double ItemPlacer::boundaryX() const { return ownItems_.boundary().xAmong(itemFrames()); }

std::vector<Rect> ItemPlacer::itemFrames() const {
    std::vector<Rect> frames;
    for (const auto& item : inventory_.items().get()) frames.push_back(item.snapshot.frame);
    return frames;
}

} // namespace tavrin
