#include "menu_bar/arrangement.h"

#include "menu_bar/titles.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace mac_model {

Arrangement::Arrangement(VirtualScheduler& scheduler, StatusItemTable& items, ProcessTable& processes,
                         ScreensModel& screens, const Behaviour& behaviour)
    : scheduler_(scheduler)
    , world_(scheduler)
    , items_(items)
    , processes_(processes)
    , screens_(screens)
    , behaviour_(behaviour) {
    refresh();
    arrange();
    subscriptions_.push_back(items.onPlacesStale.subscribe([this] { refresh(); }));
    subscriptions_.push_back(processes.onFrontChanged.subscribe([this] { refresh(); }));
    subscriptions_.push_back(screens.onChanged.subscribe([this] { refresh(); }));
    subscriptions_.push_back(screens.onUnseenChanged.subscribe([this] { refresh(); }));
}

void Arrangement::refresh() {
    if (std::exchange(isArranging_, true)) return;
    world_.after(behaviour_.faults.arrangingTime, [this] {
        isArranging_ = false;
        arrange();
    });
}

void Arrangement::arrangeAfter(Seconds delay) {
    world_.after(delay, [this] { arrange(); });
}

const StatusItemRecord* Arrangement::itemAt(Point point) const {
    if (!screens_.isMenuBarShown()) return nullptr;
    for (const auto& screen : screens_.screens()) {
        const Rect bar{screen.frame.x, screen.frame.y, screen.frame.width, screen.menuBarHeight};
        if (!bar.contains(point)) continue;
        const auto notch = notchOf(screen);
        if (notch && notch->contains(point)) return nullptr;
        for (const auto* record : items_.items()) {
            // The notch of the primary screen hides nothing on the others.
            if (!record->isDrawn && record->why != HiddenReason::Notch) continue;
            const auto frame = frameOn(screen, *record);
            if (frame && point.x >= frame->x && point.x < frame->maxX()) return record;
        }
    }
    return nullptr;
}

std::optional<Rect> Arrangement::frameOn(const ScreenSpec& screen, const StatusItemRecord& record) const {
    const auto* primary = screens_.primary();
    if (!record.frame || !primary) return std::nullopt;
    auto frame = frameOnScreen(*record.frame, *primary, screen);
    frame.y -= screens_.menuBarLift(screen);
    return frame;
}

Rect Arrangement::accessibilityFrame(const StatusItemRecord& record) const {
    auto frame = screens_.onActiveBar(record.frame.value_or(Rect{}));
    const bool isClamped = behaviour_.uncertainties.offscreenFrames == OffscreenFrames::Clamped;
    if (isClamped && record.why == HiddenReason::Offscreen) frame.x = -1;
    return frame;
}

bool Arrangement::isDrawnForOwner(StatusItemIdentifier identifier) const {
    const auto* record = items_.find(identifier);
    if (!record || !record->isDrawn) return false;
    return !behaviour_.faults.occlusionLag || !arrangedAt_ || scheduler_.now() >= *arrangedAt_ + occlusionLag;
}

void Arrangement::storePositions(ProcessIdentifier owner) {
    for (const auto* record : items_.itemsOf(owner)) {
        if (!record->frame || record->preferredPosition) continue;
        items_.storePosition(*record, positionToStore(*record));
    }
}

/// The item's distance from the right edge, or more where the present order needs it.
double Arrangement::positionToStore(const StatusItemRecord& record) const {
    double position = screens_.primary() ? screens_.primary()->frame.maxX() - record.frame->maxX() : 0;
    for (const auto* other : items_.items())
        if (other->preferredPosition && other->frame && other->frame->x >= record.frame->maxX())
            position = std::max(position, *other->preferredPosition + 1);
    return position;
}

std::vector<StatusItemIdentifier> Arrangement::run() const {
    std::vector<StatusItemIdentifier> order;
    for (const auto& place : places()) {
        const auto& record = *items_.find(place.identifier);
        if (!record.isRestricted && !record.isBehindNotch) order.push_back(place.identifier);
    }
    return order;
}

double Arrangement::widthOf(const StatusItemRecord& record) const {
    return record.length < 0 ? squareWidth : record.length;
}

/// While an item is carried, the run stands as the person has arranged it.
std::optional<double> Arrangement::rankOf(StatusItemIdentifier identifier) const {
    const auto& order = carried_->order;
    const auto found = std::ranges::find(order, identifier);
    if (found == order.end()) return std::nullopt;
    return static_cast<double>(found - order.begin() + 1);
}

LayoutItem Arrangement::layoutItem(const StatusItemRecord& record) const {
    LayoutItem item;
    item.identifier = record.identifier;
    item.owner = record.owner;
    item.width = widthOf(record);
    item.preferredPosition = carried_ ? rankOf(record.identifier) : record.preferredPosition;
    item.isFixed = record.spec.fixed;
    item.isClock = record.spec.identifier == "com.apple.menuextra.clock" || record.name == "Clock";
    item.isForcedBehindNotch = record.isBehindNotch;
    item.isRestricted = record.isRestricted;
    return item;
}

std::vector<PlacedItem> Arrangement::places() const {
    const auto* screen = screens_.primary();
    if (!screen) return {};
    std::vector<LayoutItem> items;
    for (const auto* record : items_.items())
        if (record->isVisible) items.push_back(layoutItem(*record));
    const auto* owner = processes_.menuBarOwner();
    const double end = menusEnd(owner ? &owner->application : nullptr, *screen);
    return layOutStatusItems(
        items, *screen,
        {behaviour_.version, behaviour_.uncertainties, behaviour_.faults.dropsOwnersOfLongItems, end});
}

/// A hidden menu bar takes its items along, off the top; behind a locked screen they stay where they are.
PlacedItem Arrangement::asSeen(PlacedItem place) const {
    if (screens_.isMenuBarShown()) return place;
    if (const auto* primary = screens_.primary()) place.frame.y -= screens_.menuBarLift(*primary);
    if (place.isDrawn) place.why = HiddenReason::BarNotVisible;
    place.isDrawn = false;
    return place;
}

void Arrangement::arrange() {
    std::map<StatusItemIdentifier, PlacedItem> placed;
    for (const auto& place : places()) placed.emplace(place.identifier, asSeen(place));
    bool hasMoved = false;
    bool hasChanged = false;
    bool hasProgramChanged = false;
    for (const auto* item : items_.items()) {
        auto& record = *items_.change(item->identifier);
        const auto found = placed.find(record.identifier);
        const auto before = std::tuple(record.frame, record.isDrawn, record.why);
        const bool isPlaced = found != placed.end();
        record.frame = isPlaced ? std::optional(found->second.frame) : std::nullopt;
        record.isDrawn = isPlaced && found->second.isDrawn;
        record.why = isPlaced ? found->second.why : std::nullopt;
        record.isCarried = carried_ && carried_->identifier == record.identifier;
        if (record.isCarried && record.frame) record.frame->x = carried_->x;
        const bool isProgram = record.origin == ItemOrigin::Program;
        hasProgramChanged = hasProgramChanged || (isProgram && std::get<1>(before) != record.isDrawn);
        hasMoved = hasMoved || std::get<0>(before) != record.frame;
        hasChanged = hasChanged || before != std::tuple(record.frame, record.isDrawn, record.why);
    }
    if (hasMoved) {
        arrangedAt_ = scheduler_.now();
        world_.after(occlusionLag, [] {}); // so that waiting for everything to settle includes this
    }
    if (hasProgramChanged) world_.after(occlusionLag, [this] { onProgramItemsDrawn.emit(); });
    if (hasChanged) items_.onChanged.emit();
}

} // namespace mac_model
