#include "menu_bar/status_area.h"

#include <algorithm>
#include <tuple>

namespace mac_model {

using tavrin::ProcessIdentifier;
using tavrin::Rect;

StatusArea::StatusArea(tavrin::VirtualScheduler& scheduler, ProcessTable& processes, ScreensModel& screens,
                       PreferencesStore& preferences, MacOSVersion version,
                       const Uncertainties& uncertainties, const Faults& faults)
    : scheduler_(scheduler)
    , world_(scheduler)
    , processes_(processes)
    , screens_(screens)
    , stored_(preferences, version)
    , version_(version)
    , uncertainties_(uncertainties)
    , faults_(faults) {
    for (const auto* process : processes.processes()) addItemsOf(process->identifier);
    arrange();
    subscriptions_.push_back(processes.onLaunched.subscribe([this](auto process) { addItemsOf(process); }));
    subscriptions_.push_back(processes.onEnded.subscribe([this](auto process) { removeItemsOf(process); }));
    subscriptions_.push_back(processes.onFrontChanged.subscribe([this] { refresh(); }));
    subscriptions_.push_back(screens.onChanged.subscribe([this] {
        putDown(PutDown::WhereItWas);
        refresh();
    }));
}

std::vector<const StatusItemRecord*> StatusArea::items() const {
    std::vector<const StatusItemRecord*> all;
    for (const auto& [_, record] : records_) all.push_back(&record);
    return all;
}

std::vector<const StatusItemRecord*> StatusArea::itemsOf(ProcessIdentifier owner) const {
    auto found = items();
    std::erase_if(found, [&](const auto* record) { return record->owner != owner; });
    return found;
}

std::vector<const StatusItemRecord*> StatusArea::fromLeftToRight() const {
    auto found = items();
    std::erase_if(found, [](const auto* record) { return !record->frame; });
    // Items of width 0 share their x with the right neighbour; of two at one x the wider is further right.
    std::ranges::sort(found, {}, [](const auto* record) {
        return std::tuple(record->frame->x, record->frame->width, record->identifier);
    });
    return found;
}

const StatusItemRecord* StatusArea::find(StatusItemIdentifier identifier) const {
    const auto found = records_.find(identifier);
    return found == records_.end() ? nullptr : &found->second;
}

StatusItemRecord* StatusArea::change(StatusItemIdentifier identifier) {
    const auto found = records_.find(identifier);
    return found == records_.end() ? nullptr : &found->second;
}

std::optional<Rect> StatusArea::frameOn(const ScreenSpec& screen, const StatusItemRecord& record) const {
    const auto* primary = screens_.primary();
    if (!record.frame || !primary) return std::nullopt;
    return frameOnScreen(*record.frame, *primary, screen);
}

const StatusItemRecord* StatusArea::itemAt(tavrin::Point point) const {
    for (const auto& screen : screens_.screens()) {
        const Rect bar{screen.frame.x, screen.frame.y, screen.frame.width, screen.menuBarHeight};
        if (!bar.contains(point)) continue;
        const auto notch = notchOf(screen);
        if (notch && notch->contains(point)) return nullptr;
        for (const auto& [_, record] : records_) {
            // The notch of the primary screen hides nothing on the others.
            if (!record.isDrawn && record.why != HiddenReason::Notch) continue;
            const auto frame = frameOn(screen, record);
            if (frame && point.x >= frame->x && point.x < frame->maxX()) return &record;
        }
    }
    return nullptr;
}

Rect StatusArea::accessibilityFrame(const StatusItemRecord& record) const {
    auto frame = record.frame.value_or(Rect{});
    const bool isClamped = uncertainties_.offscreenFrames == OffscreenFrames::Clamped;
    if (isClamped && record.why == HiddenReason::Offscreen) frame.x = -1;
    return frame;
}

void StatusArea::setOpen(StatusItemIdentifier identifier, bool isOpen) {
    auto* record = change(identifier);
    if (!record || record->isOpen == isOpen) return;
    record->isOpen = isOpen;
    if (!isOpen) ++record->menuGeneration;
    onChanged.emit();
}

bool StatusArea::press(StatusItemIdentifier identifier, tavrin::StatusItemPress press) {
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

std::expected<void, std::string> StatusArea::removeItems(std::string_view bundleIdentifier) {
    bool hasRemoved = false;
    for (const auto process : processes_.withBundle(bundleIdentifier))
        for (const auto* record : itemsOf(process))
            if (record->isVisible) hide(*change(record->identifier)), hasRemoved = true;
    if (!hasRemoved)
        return std::unexpected("No status item of \"" + std::string(bundleIdentifier) +
                               "\" is in the menu bar.");
    return {};
}

std::expected<void, std::string> StatusArea::setBehindNotch(std::string_view bundleIdentifier,
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
    refresh();
    return {};
}

void StatusArea::addItemsOf(ProcessIdentifier owner) {
    const auto& application = processes_.find(owner)->application;
    for (const auto& spec : application.statusItems) {
        StatusItemRecord record;
        record.identifier = StatusItemIdentifier{nextIdentifier_++};
        record.owner = owner;
        record.spec = spec;
        record.name = spec.autosaveName;
        record.length = spec.width;
        record.preferredPosition = spec.preferredPosition;
        record.isBehindNotch = behindNotch_.contains(application.bundleIdentifier);
        if (!record.name.empty()) stored_.read(record, domainOf(record));
        records_.emplace(record.identifier, std::move(record));
    }
    refresh();
}

void StatusArea::removeItemsOf(ProcessIdentifier owner) {
    for (const auto* record : itemsOf(owner)) {
        const auto identifier = record->identifier;
        putBack(identifier);
        programItems_.erase(identifier);
        records_.erase(identifier);
    }
    refresh();
}

tavrin::DefaultsDomain StatusArea::domainOf(const StatusItemRecord& record) const {
    const auto program = programItems_.find(record.identifier);
    if (program != programItems_.end()) return program->second.domain;
    const auto* process = processes_.find(record.owner);
    return {process ? process->application.bundleIdentifier : std::string{}};
}

void StatusArea::hide(StatusItemRecord& record) {
    putBack(record.identifier);
    record.isVisible = false;
    stored_.setVisible(record, domainOf(record), false);
    forgetPosition(record);
    refresh();
}

void StatusArea::forgetPosition(StatusItemRecord& record) {
    if (uncertainties_.removal == Removal::KeepsPosition) return;
    record.preferredPosition.reset();
    stored_.removePosition(record, domainOf(record));
}

} // namespace mac_model
