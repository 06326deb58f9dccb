#include "menu_bar/menu_titles.h"
#include "menu_bar/status_area.h"

namespace mac_model {

void StatusArea::refresh() {
    if (std::exchange(isArranging_, true)) return;
    world_.after(arrangingTime, [this] {
        isArranging_ = false;
        arrange();
    });
}

LayoutItem StatusArea::layoutItem(const StatusItemRecord& record) const {
    LayoutItem item;
    item.identifier = record.identifier;
    item.owner = record.owner;
    item.width = record.length < 0 ? squareWidth : record.length;
    item.preferredPosition = carried_ ? rankOf(record.identifier) : record.preferredPosition;
    item.isFixed = record.spec.fixed;
    item.isClock = record.spec.identifier == "com.apple.menuextra.clock" || record.name == "Clock";
    item.isForcedBehindNotch = record.isBehindNotch;
    item.isRestricted = record.isRestricted;
    return item;
}

std::vector<PlacedItem> StatusArea::places() const {
    const auto* screen = screens_.primary();
    if (!screen) return {};
    std::vector<LayoutItem> items;
    for (const auto& [_, record] : records_)
        if (record.isVisible) items.push_back(layoutItem(record));
    const auto* owner = processes_.menuBarOwner();
    const double end = menusEnd(owner ? &owner->application : nullptr, *screen);
    return layOutStatusItems(items, *screen, {version_, uncertainties_, faults_.dropsOwnersOfLongItems, end});
}

void StatusArea::arrange() {
    std::map<StatusItemIdentifier, PlacedItem> placed;
    for (const auto& place : places()) placed.emplace(place.identifier, place);
    bool hasMoved = false;
    bool hasChanged = false;
    for (auto& [identifier, record] : records_) {
        const auto found = placed.find(identifier);
        const auto before = std::tuple(record.frame, record.isDrawn, record.why);
        const bool isPlaced = found != placed.end();
        record.frame = isPlaced ? std::optional(found->second.frame) : std::nullopt;
        record.isDrawn = isPlaced && found->second.isDrawn;
        record.why = isPlaced ? found->second.why : std::nullopt;
        record.isCarried = carried_ && carried_->identifier == identifier;
        if (record.isCarried && record.frame) record.frame->x = carried_->x;
        hasMoved = hasMoved || std::get<0>(before) != record.frame;
        hasChanged = hasChanged || before != std::tuple(record.frame, record.isDrawn, record.why);
    }
    if (hasMoved) {
        arrangedAt_ = scheduler_.now();
        world_.after(occlusionLag, [] {}); // so that who waits until all is settled waits for this, too
    }
    if (hasChanged) onChanged.emit();
}

} // namespace mac_model
