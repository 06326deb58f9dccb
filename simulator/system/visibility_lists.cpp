#include "system/visibility_lists.h"

#include "concurrency/virtual_scheduler.h"

#include <utility>

namespace mac_model {

VisibilityLists::Identifier VisibilityLists::activate(VisibilityList list, Answer toTell) {
    const auto identifier = ++activations_;
    if (answer == VisibilityService::Silent) return identifier;
    pending_.push_back(identifier);
    scheduler_.callInWorldAfter(delay, [this, entry = Entry{identifier, std::move(list)},
                                        toTell = std::move(toTell)] { settle(entry, toTell); });
    return identifier;
}

/// A list that has ended meanwhile is answered all the same, and stays without effect.
void VisibilityLists::settle(Entry entry, const Answer& toTell) {
    const bool isAccepted = answer == VisibilityService::Accepts;
    if (std::erase(pending_, entry.identifier) > 0 && isAccepted) {
        accepted_.push_back(std::move(entry));
        onChanged.emit();
    }
    toTell(isAccepted ? std::nullopt
                      : std::optional<std::string>("Error Domain=MBAssessmentModeErrorDomain Code=1"));
}

void VisibilityLists::invalidate(Identifier identifier) {
    std::erase(pending_, identifier);
    const auto isThis = [=](const Entry& entry) { return entry.identifier == identifier; };
    if (std::erase_if(accepted_, isThis) > 0) onChanged.emit();
}

void VisibilityLists::invalidateAll() {
    pending_.clear();
    if (!std::exchange(accepted_, {}).empty()) onChanged.emit();
}

} // namespace mac_model
