#include "menu_bar/status_area.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

namespace {

double usableLength(double length) {
    if (!std::isfinite(length)) return 0;
    return length < 0 ? tavrin::squareStatusItemLength : std::min(length, statusItemLengthMax);
}

} // namespace

StatusItemIdentifier StatusArea::add(std::shared_ptr<ProgramConnection> connection,
                                     tavrin::DefaultsDomain domain, double length) {
    StatusItemRecord record;
    record.identifier = StatusItemIdentifier{nextIdentifier_++};
    record.owner = connection->process();
    record.origin = ItemOrigin::Program;
    record.length = usableLength(length);
    record.isBehindNotch = behindNotch_.contains(domain.name);
    record.name = "Item-" + std::to_string(itemsOf(record.owner).size());
    stored_.read(record, domain);
    const auto identifier = record.identifier;
    programItems_.emplace(identifier, ProgramItem{std::move(connection), std::move(domain)});
    records_.emplace(identifier, std::move(record));
    refresh();
    return identifier;
}

void StatusArea::remove(StatusItemIdentifier identifier) {
    auto* record = change(identifier);
    if (!record) return;
    putBack(identifier);
    forgetPosition(*record);
    programItems_.erase(identifier);
    records_.erase(identifier);
    refresh();
    onChanged.emit();
}

void StatusArea::setLength(StatusItemIdentifier identifier, double length) {
    auto* record = change(identifier);
    if (!record || record->length == usableLength(length)) return;
    record->length = usableLength(length);
    refresh();
}

void StatusArea::setAutosaveName(StatusItemIdentifier identifier, std::string name) {
    auto* record = change(identifier);
    if (!record || record->name == name) return;
    record->name = std::move(name);
    record->preferredPosition.reset();
    record->isVisible = true;
    stored_.read(*record, domainOf(*record));
    refresh();
}

void StatusArea::setVisible(StatusItemIdentifier identifier, bool visible) {
    auto* record = change(identifier);
    if (!record || record->isVisible == visible) return;
    if (!visible) return hide(*record);
    record->isVisible = true;
    stored_.setVisible(*record, domainOf(*record), true);
    refresh();
}

void StatusArea::setAppearance(StatusItemIdentifier identifier, ItemAppearance appearance) {
    auto* record = change(identifier);
    if (!record || record->appearance == appearance) return;
    record->appearance = std::move(appearance);
    onChanged.emit();
}

void StatusArea::setTexts(StatusItemIdentifier identifier, std::string label, std::string toolTip) {
    auto* record = change(identifier);
    if (!record) return;
    record->spec.description = std::move(label);
    record->spec.help = std::move(toolTip);
    onChanged.emit();
}

void StatusArea::setHiddenFromAccessibility(StatusItemIdentifier identifier, bool hidden) {
    if (auto* record = change(identifier)) record->spec.accessible = !hidden;
}

void StatusArea::setAction(StatusItemIdentifier identifier,
                           std::function<void(tavrin::StatusItemPress)> action) {
    if (auto* record = change(identifier)) record->action = std::move(action);
}

bool StatusArea::isDrawnForOwner(StatusItemIdentifier identifier) const {
    const auto* record = find(identifier);
    if (!record || !record->isDrawn) return false;
    return !faults_.occlusionLag || !arrangedAt_ || scheduler_.now() >= *arrangedAt_ + occlusionLag;
}

void StatusArea::storePositions(tavrin::ProcessIdentifier owner) {
    for (const auto* record : itemsOf(owner)) {
        if (!record->frame || record->preferredPosition) continue;
        stored_.setPosition(*record, domainOf(*record), positionToStore(*record));
    }
}

/// Its distance from the right edge, as far as that keeps the present order.
double StatusArea::positionToStore(const StatusItemRecord& record) const {
    double position = screens_.primary() ? screens_.primary()->frame.maxX() - record.frame->maxX() : 0;
    for (const auto& [_, other] : records_)
        if (other.preferredPosition && other.frame && other.frame->x >= record.frame->maxX())
            position = std::max(position, *other.preferredPosition + 1);
    return position;
}

} // namespace mac_model
