#include "menu_bar/status_area.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace mac_model {

namespace {

constexpr double closest = 1; // that stored places of neighbours come to each other

} // namespace

/// The items of the run from right to left.
std::vector<StatusItemIdentifier> StatusArea::run() const {
    std::vector<StatusItemIdentifier> order;
    for (const auto& place : places()) {
        const auto& record = records_.at(place.identifier);
        if (!record.isRestricted && !record.isBehindNotch) order.push_back(place.identifier);
    }
    return order;
}

bool StatusArea::isMovable(const StatusItemRecord& record) const {
    const auto* owner = processes_.find(record.owner);
    const bool isRefused = owner && faults_.refuseDrags.contains(owner->application.bundleIdentifier);
    return record.frame && record.spec.movable && !record.spec.fixed && !isRefused;
}

bool StatusArea::pickUp(StatusItemIdentifier identifier) {
    auto* record = change(identifier);
    if (!record || !isMovable(*record) || isDragLost()) return false;
    putDown(PutDown::WhereItWas); // another one that is still being carried
    if (record->isRestricted) return false;
    const bool wasBehindNotch = std::exchange(record->isBehindNotch, false); // it joins the run
    auto order = run();
    carried_ = Carried{identifier, record->frame->x, wasBehindNotch, order, order};
    arrange();
    return true;
}

bool StatusArea::isDragLost() {
    const int every = faults_.loseDrags;
    dragsSeen_ = every > 0 ? dragsSeen_ + 1 : 0;
    return every > 0 && dragsSeen_ % every == 0;
}

void StatusArea::putBack(StatusItemIdentifier identifier) {
    if (carried_ && carried_->identifier == identifier) putDown(PutDown::WhereItWas);
}

void StatusArea::carryTo(double x) {
    if (!carried_ || !records_.contains(carried_->identifier)) return;
    carried_->x = x;
    changePlaces(*carried_);
    arrange();
    onChanged.emit();
}

/// Its neighbours stand side by side, as if its own place had its width; those places are computed here,
/// because items are arranged only afterwards.
void StatusArea::changePlaces(Carried& carried) const {
    auto& order = carried.order;
    const auto widthOf = [this](StatusItemIdentifier identifier) {
        return layoutItem(records_.at(identifier)).width;
    };
    const auto isPassable = [this](StatusItemIdentifier identifier) {
        return !records_.at(identifier).spec.fixed;
    };
    std::erase_if(order, [this](auto identifier) { return !records_.contains(identifier); });
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

/// While an item is carried, the run stands as the person has arranged it.
std::optional<double> StatusArea::rankOf(StatusItemIdentifier identifier) const {
    const auto& order = carried_->order;
    const auto found = std::ranges::find(order, identifier);
    if (found == order.end()) return std::nullopt;
    return static_cast<double>(found - order.begin() + 1);
}

void StatusArea::putDown(PutDown where) {
    if (!carried_) return;
    const auto carried = *std::exchange(carried_, std::nullopt);
    if (auto* record = change(carried.identifier)) {
        record->isCarried = false;
        returnBehindNotch(*record, carried.wasBehindNotch, where);
    }
    if (where == PutDown::There && carried.order != carried.before)
        storeNewPlace(carried.order, carried.identifier);
    world_.after(slidingTime, [this] { arrange(); });
    onChanged.emit();
}

/// An item that was moved out from behind the notch stays in the run, unless its bundle's never do.
void StatusArea::returnBehindNotch(StatusItemRecord& record, bool wasBehindNotch, PutDown where) const {
    const auto* owner = processes_.find(record.owner);
    const bool isForAll = owner && behindNotch_.contains(owner->application.bundleIdentifier);
    record.isBehindNotch = wasBehindNotch && (where == PutDown::WhereItWas || isForAll);
}

bool StatusArea::hasPosition(const StatusItemRecord& record) const {
    const bool isForgotten =
        record.preferredPosition == 0.0 && uncertainties_.zeroPosition == ZeroPosition::Leftmost;
    return record.preferredPosition && !isForgotten;
}

/// Its distance from the right edge where that is more than `above`.
double StatusArea::positionFor(const StatusItemRecord& record, double above) const {
    const auto* screen = screens_.primary();
    const double distance = screen && record.frame ? screen->frame.maxX() - record.frame->maxX() : 0;
    return std::max(distance, above + closest);
}

/// The moved item gets a place between its new neighbours. Items on its right that had none get one too, else
/// they would go left of it at the next launch; and left neighbours that it has come too close to give way.
void StatusArea::storeNewPlace(const std::vector<StatusItemIdentifier>& order, StatusItemIdentifier moved) {
    double right = 0;
    bool isBeyondMoved = false;
    for (std::size_t i = 0; i < order.size(); ++i) {
        auto* record = change(order[i]);
        if (!record || record->spec.fixed) continue;
        const bool isMoved = order[i] == moved;
        const bool isInOrder = hasPosition(*record) && *record->preferredPosition > right;
        if (isBeyondMoved && (isInOrder || !hasPosition(*record))) return;
        if (isMoved || !hasPosition(*record) || (isBeyondMoved && !isInOrder)) {
            double left = std::numeric_limits<double>::infinity();
            const auto* next = isMoved && i + 1 < order.size() ? find(order[i + 1]) : nullptr;
            if (next && hasPosition(*next) && *next->preferredPosition > right)
                left = *next->preferredPosition;
            double position = positionFor(*record, right);
            if (position >= left) position = right + std::min(closest, (left - right) / 2);
            record->preferredPosition = position;
            stored_.setPosition(*record, domainOf(*record), position);
        }
        right = std::max(right, *record->preferredPosition);
        isBeyondMoved = isBeyondMoved || isMoved;
    }
}

} // namespace mac_model
