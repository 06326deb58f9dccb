#include "menu_bar/status_item_table.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace mac_model {

namespace {

double usableLength(double length) {
    if (!std::isfinite(length)) return 0;
    return length < 0 ? tavrin::squareStatusItemLength : std::min(length, statusItemLengthMax);
}

} // namespace

StatusItemTable::StatusItemTable(ProcessTable& processes, PreferencesStore& preferences,
                                 const Behaviour& behaviour)
    : processes_(processes)
    , stored_(preferences, behaviour.version)
    , behaviour_(behaviour) {
    for (const auto* process : processes.processes()) addItemsOf(process->identifier);
    subscriptions_.push_back(processes.onLaunched.subscribe([this](auto process) { addItemsOf(process); }));
    subscriptions_.push_back(processes.onEnded.subscribe([this](auto process) { removeItemsOf(process); }));
}

std::vector<const StatusItemRecord*> StatusItemTable::items() const {
    std::vector<const StatusItemRecord*> all;
    for (const auto& [_, record] : records_) all.push_back(&record);
    return all;
}

std::vector<const StatusItemRecord*> StatusItemTable::itemsOf(ProcessIdentifier owner) const {
    auto found = items();
    std::erase_if(found, [&](const auto* record) { return record->owner != owner; });
    return found;
}

std::vector<const StatusItemRecord*> StatusItemTable::fromLeftToRight() const {
    auto found = items();
    std::erase_if(found, [](const auto* record) { return !record->frame; });
    // Items of width 0 share their x with the right neighbour; of two at one x the wider is further right.
    std::ranges::sort(found, {}, [](const auto* record) {
        return std::tuple(record->frame->x, record->frame->width, record->identifier);
    });
    return found;
}

const StatusItemRecord* StatusItemTable::find(StatusItemIdentifier identifier) const {
    const auto found = records_.find(identifier);
    return found == records_.end() ? nullptr : &found->second;
}

StatusItemRecord* StatusItemTable::change(StatusItemIdentifier identifier) {
    const auto found = records_.find(identifier);
    return found == records_.end() ? nullptr : &found->second;
}

void StatusItemTable::notePress(StatusItemIdentifier identifier, Point point) {
    if (auto* record = change(identifier)) record->pressedAt = point;
}

void StatusItemTable::setOpen(StatusItemIdentifier identifier, bool isOpen) {
    auto* record = change(identifier);
    if (!record || record->isOpen == isOpen) return;
    record->isOpen = isOpen;
    if (!isOpen) ++record->menuGeneration;
    if (!isOpen) record->pressedAt = std::nullopt;
    onChanged.emit();
}

bool StatusItemTable::press(StatusItemIdentifier identifier, StatusItemPress press) {
    const auto* record = find(identifier);
    const auto program = programItems_.find(identifier);
    if (!record || program == programItems_.end()) return false;
    program->second.connection->post([this, identifier, press] {
        const auto* pressed = find(identifier);
        if (!pressed || !pressed->action) return;
        // A copy, because the action may destroy the item.
        const auto action = pressed->action;
        action(press);
    });
    return true;
}

bool StatusItemTable::perform(StatusItemIdentifier identifier, std::string_view name) {
    const auto* record = find(identifier);
    const auto program = programItems_.find(identifier);
    if (!record || program == programItems_.end()) return false;
    const auto action = std::ranges::find(record->actions, name, &tavrin::ViewAction::name);
    if (action == record->actions.end()) return false;
    program->second.connection->post(action->perform);
    return true;
}

std::expected<void, std::string> StatusItemTable::removeItems(std::string_view bundleIdentifier) {
    bool hasRemoved = false;
    for (const auto process : processes_.withBundle(bundleIdentifier))
        for (const auto* record : itemsOf(process))
            if (record->isVisible) hide(*change(record->identifier)), hasRemoved = true;
    if (!hasRemoved)
        return std::unexpected("No status item of \"" + std::string(bundleIdentifier) +
                               "\" is in the menu bar.");
    return {};
}

std::expected<void, std::string> StatusItemTable::setBehindNotch(std::string_view bundleIdentifier,
                                                                 BehindNotch which) {
    const auto processes = processes_.withBundle(bundleIdentifier);
    if (processes.empty())
        return std::unexpected("No running application has the bundle identifier \"" +
                               std::string(bundleIdentifier) + "\".");
    behindNotch_.erase(std::string(bundleIdentifier));
    if (which == BehindNotch::AllItems) behindNotch_.emplace(bundleIdentifier);
    for (const auto process : processes)
        for (const auto* record : itemsOf(process))
            change(record->identifier)->isBehindNotch = which != BehindNotch::No;
    onPlacesStale.emit();
    return {};
}

std::expected<void, std::string> StatusItemTable::setAllowed(std::string_view bundleIdentifier,
                                                             bool isAllowed) {
    const auto processes = processes_.withBundle(bundleIdentifier);
    if (processes.empty())
        return std::unexpected("No running application has the bundle identifier \"" +
                               std::string(bundleIdentifier) + "\".");
    disallowed_.erase(std::string(bundleIdentifier));
    if (!isAllowed) disallowed_.emplace(bundleIdentifier);
    for (const auto process : processes)
        for (const auto* record : itemsOf(process)) {
            if (!isAllowed) onLeaving.emit(record->identifier);
            change(record->identifier)->isRestricted = !isAllowed;
        }
    onPlacesStale.emit();
    return {};
}

void StatusItemTable::readStored(StatusItemRecord& record) const {
    const auto domain = domainOf(record);
    if (const auto position = stored_.position(placeOf(record))) record.preferredPosition = position;
    stored_.readVisibility(record, domain);
    record.isRestricted = record.isRestricted || disallowed_.contains(domain.name);
}

bool StatusItemTable::areAllBehindNotch(ProcessIdentifier owner) const {
    const auto* process = processes_.find(owner);
    return process && behindNotch_.contains(process->application.bundleIdentifier);
}

void StatusItemTable::addItemsOf(ProcessIdentifier owner) {
    const auto& process = *processes_.find(owner);
    for (const auto& spec : process.application.statusItems) {
        auto record = recordFor(process, spec);
        records_.emplace(record.identifier, std::move(record));
    }
    onPlacesStale.emit();
}

StatusItemRecord StatusItemTable::recordFor(const Process& owner, const StatusItemSpec& spec) {
    StatusItemRecord record;
    record.identifier = StatusItemIdentifier{nextIdentifier_++};
    record.owner = owner.identifier;
    record.spec = spec;
    record.name = spec.autosaveName;
    record.length = spec.width;
    record.preferredPosition = spec.preferredPosition;
    record.isBehindNotch = behindNotch_.contains(owner.application.bundleIdentifier);
    if (!record.name.empty()) readStored(record);
    return record;
}

void StatusItemTable::removeItemsOf(ProcessIdentifier owner) {
    for (const auto* record : itemsOf(owner)) {
        const auto identifier = record->identifier;
        onLeaving.emit(identifier);
        programItems_.erase(identifier);
        records_.erase(identifier);
    }
    onPlacesStale.emit();
}

DefaultsDomain StatusItemTable::domainOf(const StatusItemRecord& record) const {
    const auto program = programItems_.find(record.identifier);
    if (program != programItems_.end()) return program->second.domain;
    const auto* process = processes_.find(record.owner);
    return {process ? process->application.bundleIdentifier : std::string{}};
}

/// The agent keeps a table of its own, which nobody else's preferences reach.
StoredPlaces::Place StatusItemTable::placeOf(const StatusItemRecord& record) const {
    auto domain = domainOf(record);
    const bool isSeeded = behaviour_.uncertainties.hostedPositions == HostedPositions::Seeded;
    if (!behaviour_.hasHostedBar() || isSeeded || record.name.empty())
        return {std::move(domain), record.name};
    return {{"com.apple.MenuBarAgent"}, domain.name + ' ' + record.name};
}

void StatusItemTable::hide(StatusItemRecord& record) {
    onLeaving.emit(record.identifier);
    record.isVisible = false;
    stored_.setVisible(record, domainOf(record), false);
    forgetPosition(record);
    onPlacesStale.emit();
}

void StatusItemTable::forgetPosition(StatusItemRecord& record) {
    if (behaviour_.uncertainties.removal == Removal::KeepsPosition) return;
    record.preferredPosition.reset();
    stored_.removePosition(placeOf(record));
}

void StatusItemTable::storePosition(const StatusItemRecord& record, double position) {
    stored_.setPosition(placeOf(record), position);
}

StatusItemIdentifier StatusItemTable::add(std::shared_ptr<ProgramConnection> connection,
                                          DefaultsDomain domain, double length) {
    StatusItemRecord record;
    record.identifier = StatusItemIdentifier{nextIdentifier_++};
    record.owner = connection->process();
    record.origin = ItemOrigin::Program;
    record.spec.enabled = false; // until it has an action
    record.length = usableLength(length);
    record.isBehindNotch = behindNotch_.contains(domain.name);
    record.name = "Item-" + std::to_string(itemsOf(record.owner).size());
    const auto identifier = record.identifier;
    programItems_.emplace(identifier, ProgramItem{std::move(connection), std::move(domain)});
    readStored(record);
    records_.emplace(identifier, std::move(record));
    onPlacesStale.emit();
    return identifier;
}

void StatusItemTable::remove(StatusItemIdentifier identifier) {
    auto* record = change(identifier);
    if (!record) return;
    onLeaving.emit(identifier);
    forgetPosition(*record);
    programItems_.erase(identifier);
    records_.erase(identifier);
    onPlacesStale.emit();
    onChanged.emit();
}

void StatusItemTable::setLength(StatusItemIdentifier identifier, double length) {
    auto* record = change(identifier);
    if (!record || record->length == usableLength(length)) return;
    record->length = usableLength(length);
    onPlacesStale.emit();
}

void StatusItemTable::setAutosaveName(StatusItemIdentifier identifier, std::string name) {
    auto* record = change(identifier);
    if (!record || record->name == name) return;
    record->name = std::move(name);
    record->preferredPosition.reset();
    record->isVisible = true;
    readStored(*record);
    onPlacesStale.emit();
}

void StatusItemTable::setVisible(StatusItemIdentifier identifier, bool visible) {
    auto* record = change(identifier);
    if (!record || record->isVisible == visible) return;
    if (!visible) return hide(*record);
    record->isVisible = true;
    stored_.setVisible(*record, domainOf(*record), true);
    onPlacesStale.emit();
}

void StatusItemTable::setAppearance(StatusItemIdentifier identifier, ItemAppearance appearance) {
    auto* record = change(identifier);
    if (!record || record->appearance == appearance) return;
    record->appearance = std::move(appearance);
    onChanged.emit();
}

void StatusItemTable::setTexts(StatusItemIdentifier identifier, std::string label, std::string toolTip) {
    auto* record = change(identifier);
    if (!record) return;
    record->spec.description = std::move(label);
    record->spec.help = std::move(toolTip);
    onChanged.emit();
}

void StatusItemTable::setSpokenValue(StatusItemIdentifier identifier, std::string value) {
    auto* record = change(identifier);
    if (!record || record->spokenValue == value) return;
    record->spokenValue = std::move(value);
    onChanged.emit();
}

void StatusItemTable::setActions(StatusItemIdentifier identifier, std::vector<tavrin::ViewAction> actions) {
    auto* record = change(identifier);
    if (!record) return;
    record->spec.actions = {"AXPress"};
    for (const auto& action : actions) record->spec.actions.push_back(action.name);
    record->actions = std::move(actions);
}

void StatusItemTable::setHiddenFromAccessibility(StatusItemIdentifier identifier, bool hidden) {
    if (auto* record = change(identifier)) record->spec.accessible = !hidden;
}

void StatusItemTable::setAction(StatusItemIdentifier identifier,
                                std::function<void(StatusItemPress)> action) {
    auto* record = change(identifier);
    if (!record) return;
    record->spec.enabled = action != nullptr;
    record->action = std::move(action);
}

} // namespace mac_model
