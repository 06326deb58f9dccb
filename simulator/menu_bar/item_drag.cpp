#include "menu_bar/item_drag.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace mac_model {

namespace {

constexpr double closest = 1; // that stored places of neighbours come to each other

} // namespace

ItemDrag::ItemDrag(StatusItemTable& items, Arrangement& arrangement, const ProcessTable& processes,
                   ScreensModel& screens, const Behaviour& behaviour)
    : items_(items)
    , arrangement_(arrangement)
    , processes_(processes)
    , screens_(screens)
    , behaviour_(behaviour) {
    subscriptions_.push_back(screens.onChanged.subscribe([this] { putDown(PutDown::WhereItWas); }));
    subscriptions_.push_back(items.onLeaving.subscribe([this](StatusItemIdentifier leaving) {
        if (carried_ && carried_->item.identifier == leaving) putDown(PutDown::WhereItWas);
    }));
}

bool ItemDrag::isMovable(const StatusItemRecord& record) const {
    const auto* owner = processes_.find(record.owner);
    const bool isRefused =
        owner && behaviour_.faults.refuseDrags.contains(owner->application.bundleIdentifier);
    return record.frame && record.spec.movable && !record.spec.fixed && !isRefused;
}

bool ItemDrag::followsPostedEvents() const {
    return !behaviour_.hasHostedBar() || behaviour_.uncertainties.hostedDrags == HostedDrags::Work;
}

bool ItemDrag::pickUp(StatusItemIdentifier identifier) {
    auto* record = items_.change(identifier);
    if (!record || !isMovable(*record) || isDragLost()) return false;
    putDown(PutDown::WhereItWas); // another one that is still being carried
    if (record->isRestricted) return false;
    const bool wasBehindNotch = std::exchange(record->isBehindNotch, false); // it joins the run
    const auto order = arrangement_.run();
    carried_ = Carried{{identifier, record->frame->x, order}, wasBehindNotch, order};
    arrangement_.setCarried(carried_->item);
    arrangement_.arrange();
    return true;
}

bool ItemDrag::isDragLost() {
    const int every = behaviour_.faults.loseDrags;
    dragsSeen_ = every > 0 ? dragsSeen_ + 1 : 0;
    return every > 0 && dragsSeen_ % every == 0;
}

void ItemDrag::carryTo(double x) {
    if (!carried_ || !items_.find(carried_->item.identifier)) return;
    carried_->item.x = x;
    changePlaces(carried_->item);
    arrangement_.setCarried(carried_->item);
    arrangement_.arrange();
    items_.onChanged.emit();
}

/// Its neighbours stand side by side, as if its own place had its width; those places are computed here,
/// because items are arranged only afterwards.
void ItemDrag::changePlaces(CarriedItem& carried) const {
    auto& order = carried.order;
    const auto widthOf = [this](StatusItemIdentifier identifier) {
        return arrangement_.widthOf(*items_.find(identifier));
    };
    const auto isPassable = [this](StatusItemIdentifier identifier) {
        return !items_.find(identifier)->spec.fixed;
    };
    std::erase_if(order, [this](auto identifier) { return !items_.find(identifier); });
    const double width = widthOf(carried.identifier);
    auto place = static_cast<std::size_t>(std::ranges::find(order, carried.identifier) - order.begin());
    double right = screens_.primary() ? screens_.primary()->frame.maxX() : 0;
    for (std::size_t i = 0; i < place; ++i) right -= widthOf(order[i]);
    while (place > 0 && isPassable(order[place - 1])) {
        const double neighbour = widthOf(order[place - 1]);
        if (carried.x + width <= right + neighbour / 2) break;
        right += neighbour;
        std::swap(order[place], order[place - 1]);
        --place;
    }
    while (place + 1 < order.size() && isPassable(order[place + 1])) {
        const double neighbour = widthOf(order[place + 1]);
        if (carried.x >= right - width - neighbour / 2) break;
        right -= neighbour;
        std::swap(order[place], order[place + 1]);
        ++place;
    }
}

void ItemDrag::putDown(PutDown where) {
    if (!carried_) return;
    const auto carried = *std::exchange(carried_, std::nullopt);
    arrangement_.setCarried(std::nullopt);
    const auto moved = carried.item.identifier;
    if (auto* record = items_.change(moved)) {
        record->isCarried = false;
        returnBehindNotch(*record, carried.wasBehindNotch, where);
    }
    if (where == PutDown::There && carried.item.order != carried.before)
        storeNewPlace(carried.item.order, moved);
    arrangement_.arrangeAfter(slidingTime);
    items_.onChanged.emit();
}

/// An item that was moved out from behind the notch stays in the run, unless no item of its bundle ever does.
void ItemDrag::returnBehindNotch(StatusItemRecord& record, bool wasBehindNotch, PutDown where) const {
    const bool isForAll = items_.areAllBehindNotch(record.owner);
    record.isBehindNotch = wasBehindNotch && (where == PutDown::WhereItWas || isForAll);
}

bool ItemDrag::hasPosition(const StatusItemRecord& record) const {
    const bool isForgotten =
        record.preferredPosition == 0.0 && behaviour_.uncertainties.zeroPosition == ZeroPosition::Leftmost;
    return record.preferredPosition && !isForgotten;
}

/// The item's distance from the right edge, but always more than `above`.
double ItemDrag::positionFor(const StatusItemRecord& record, double above) const {
    const auto* screen = screens_.primary();
    const double distance = screen && record.frame ? screen->frame.maxX() - record.frame->maxX() : 0;
    return std::max(distance, above + closest);
}

/// The moved item gets a place between its new neighbours. Items on its right that had none get one too, else
/// they would go left of it at the next launch; and left neighbours that it has come too close to give way.
void ItemDrag::storeNewPlace(const std::vector<StatusItemIdentifier>& order, StatusItemIdentifier moved) {
    double right = 0;
    bool isBeyondMoved = false;
    for (std::size_t i = 0; i < order.size(); ++i) {
        auto* record = items_.change(order[i]);
        if (!record || record->spec.fixed) continue;
        const bool isMoved = order[i] == moved;
        const bool isInOrder = hasPosition(*record) && *record->preferredPosition > right;
        if (isBeyondMoved && (isInOrder || !hasPosition(*record))) return;
        if (isMoved || !hasPosition(*record) || (isBeyondMoved && !isInOrder)) {
            double left = std::numeric_limits<double>::infinity();
            const auto* next = isMoved && i + 1 < order.size() ? items_.find(order[i + 1]) : nullptr;
            if (next && hasPosition(*next) && *next->preferredPosition > right)
                left = *next->preferredPosition;
            double position = positionFor(*record, right);
            if (position >= left) position = right + std::min(closest, (left - right) / 2);
            record->preferredPosition = position;
            items_.storePosition(*record, position);
        }
        right = std::max(right, *record->preferredPosition);
        isBeyondMoved = isBeyondMoved || isMoved;
    }
}

} // namespace mac_model
