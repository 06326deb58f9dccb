#include "system/visibility_lists.h"

#include "concurrency/virtual_scheduler.h"

#include <algorithm>
#include <utility>

namespace mac_model {

bool VisibilityList::allows(std::string_view bundleIdentifier, std::optional<int> systemItem) const {
    if (systemItem) return std::ranges::find(systemItems, *systemItem) != systemItems.end();
    return std::ranges::find(bundleIdentifiers, bundleIdentifier) != bundleIdentifiers.end();
}

VisibilityLists::VisibilityLists(VirtualScheduler& scheduler, const DesktopFile& desktop)
    : answer(desktop.visibilityService)
    , delay(desktop.visibilityDelay)
    , outlives(desktop.assertionOutlives)
    , world_(scheduler)
    , queue_(scheduler.makeSerialQueue("visibility service")) {}

VisibilityLists::Identifier VisibilityLists::activate(ProcessIdentifier process, VisibilityList list,
                                                      Answer toTell) {
    const auto identifier = ++activations_;
    if (answer == VisibilityService::Silent) return identifier;
    pending_.push_back({identifier, process, std::move(list)});
    const bool isAccepted = answer == VisibilityService::Accepts;
    world_.after(delay, [this, identifier, isAccepted, life = agentLives_, toTell = std::move(toTell)] {
        if (life == agentLives_) settle(identifier, isAccepted, toTell);
    });
    onActivating.emit(identifier);
    return identifier;
}

/// A list that was invalidated meanwhile is answered all the same, and stays without effect.
void VisibilityLists::settle(Identifier identifier, bool isAccepted, Answer toTell) {
    const auto found = std::ranges::find(pending_, identifier, &Entry::identifier);
    if (found != pending_.end()) {
        auto entry = std::move(*found);
        pending_.erase(found);
        if (isAccepted) accepted_.push_back(std::move(entry));
        if (isAccepted) onChanged.emit();
    }
    tell(std::move(toTell), isAccepted);
}

void VisibilityLists::tell(Answer toTell, bool isAccepted) {
    queue_->post([isAccepted, toTell = std::move(toTell)] {
        toTell(isAccepted ? std::nullopt
                          : std::optional<std::string>("Error Domain=MBAssessmentModeErrorDomain Code=1"));
    });
}

void VisibilityLists::invalidate(Identifier identifier) {
    const auto isThis = [=](const Entry& entry) { return entry.identifier == identifier; };
    std::erase_if(pending_, isThis);
    if (std::erase_if(accepted_, isThis) > 0) onChanged.emit();
}

void VisibilityLists::processEnded(ProcessIdentifier process) {
    if (outlives <= Seconds{0}) return dropAllOf(process);
    world_.after(outlives, [this, process] { dropAllOf(process); });
}

void VisibilityLists::dropAllOf(ProcessIdentifier process) {
    const auto isIts = [=](const Entry& entry) { return entry.process == process; };
    std::erase_if(pending_, isIts);
    if (std::erase_if(accepted_, isIts) > 0) onChanged.emit();
}

void VisibilityLists::agentEnded() {
    ++agentLives_;
    pending_.clear();
    if (!std::exchange(accepted_, {}).empty()) onChanged.emit();
}

bool VisibilityLists::isNewestOfProcess(const Entry& entry) const {
    return std::ranges::none_of(
        accepted_, [&](const Entry& other) { return other.process == entry.process && &other > &entry; });
}

bool VisibilityLists::isShown(std::string_view bundleIdentifier, std::optional<int> systemItem) const {
    return std::ranges::all_of(accepted_, [&](const Entry& entry) {
        return !isNewestOfProcess(entry) || entry.list.allows(bundleIdentifier, systemItem);
    });
}

const VisibilityList* VisibilityLists::find(Identifier identifier) const {
    for (const auto* entries : {&pending_, &accepted_}) {
        const auto found = std::ranges::find(*entries, identifier, &Entry::identifier);
        if (found != entries->end()) return &found->list;
    }
    return nullptr;
}

bool VisibilityLists::isPending(Identifier identifier) const {
    return std::ranges::find(pending_, identifier, &Entry::identifier) != pending_.end();
}

} // namespace mac_model
