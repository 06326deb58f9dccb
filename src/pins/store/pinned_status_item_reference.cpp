#include "pins/store/pinned_status_item_reference.h"

#include "pins/store/menu_title.h"

namespace tavrin {

namespace {

using Candidates = std::span<const PinnedStatusItemReference::Candidate>;

template <class Condition>
std::optional<std::size_t> onlyOne(Candidates candidates, Condition isMeant) {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        if (!isMeant(candidates[i])) continue;
        if (found) return std::nullopt;
        found = i;
    }
    return found;
}

} // namespace

std::optional<std::size_t> PinnedStatusItemReference::select(Candidates candidates, const Text& text) const {
    const auto hasIdentifier = [&](const Candidate& candidate) { return candidate.identifier == identifier; };
    if (identifier)
        if (const auto found = onlyOne(candidates, hasIdentifier)) return found;
    const auto title = MenuTitle::normalized(label, text);
    const auto hasLabel = [&](const Candidate& candidate) {
        return MenuTitle::normalized(candidate.label, text) == title;
    };
    if (title)
        if (const auto found = onlyOne(candidates, hasLabel)) return found;
    if (candidates.size() == 1) return 0;
    const bool isByIndexOnly = !identifier && !label;
    const bool isWithin = index >= 0 && static_cast<std::uint64_t>(index) < candidates.size();
    return isByIndexOnly && isWithin ? std::optional(static_cast<std::size_t>(index)) : std::nullopt;
}

} // namespace tavrin
