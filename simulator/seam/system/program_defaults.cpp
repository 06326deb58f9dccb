#include "seam/system/program_defaults.h"

#include <ranges>
#include <utility>

namespace mac_model {

ProgramDefaults::ProgramDefaults(ProgramSide side)
    : side_(std::move(side))
    , end_(side_.mac.program.onDisconnected.subscribe([this] { loseWhatIsPending(); })) {}

DefaultsDomain ProgramDefaults::ownDomain() const { return side_.domain(); }

std::optional<DefaultsValue> ProgramDefaults::value(const DefaultsDomain& domain,
                                                    std::string_view key) const {
    return side_.mac.preferences.value(domain, key);
}

void ProgramDefaults::set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) {
    if (!side_.isOpen()) return;
    note(domain, key);
    side_.mac.preferences.set(domain, key, std::move(value));
}

void ProgramDefaults::remove(const DefaultsDomain& domain, std::string_view key) {
    if (!side_.isOpen()) return;
    note(domain, key);
    side_.mac.preferences.remove(domain, key);
}

std::vector<std::string> ProgramDefaults::keys(const DefaultsDomain& domain) const {
    return side_.mac.preferences.keys(domain);
}

void ProgramDefaults::synchronize(const DefaultsDomain& domain) {
    if (!side_.isOpen()) return;
    std::erase_if(pending_, [&](const Change& change) { return change.domain == domain; });
    side_.mac.preferences.flush(domain);
}

void ProgramDefaults::note(const DefaultsDomain& domain, std::string_view key) {
    const auto now = side_.mac.scheduler.now();
    std::erase_if(pending_, [now](const Change& change) { return now - change.time >= handingTime; });
    pending_.push_back({domain, std::string(key), side_.mac.preferences.value(domain, key), now});
}

void ProgramDefaults::loseWhatIsPending() {
    const auto now = side_.mac.scheduler.now();
    for (const auto& change : std::exchange(pending_, {}) | std::views::reverse)
        if (now - change.time < handingTime) undo(change);
}

void ProgramDefaults::undo(const Change& change) {
    auto& preferences = side_.mac.preferences;
    if (change.before)
        preferences.set(change.domain, change.key, *change.before);
    else
        preferences.remove(change.domain, change.key);
}

} // namespace mac_model
