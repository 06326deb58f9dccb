#include "discovery/hosted/hosted_match.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace tavrin {

namespace {

using Items = std::vector<MenuBarItemSnapshot>;
using Index = std::size_t;

class HostedMatch {
  public:
    HostedMatch(Items items, std::span<const HostedEntry> entries, ProcessIdentifier agent)
        : items_(std::move(items))
        , entries_(entries)
        , agent_(agent)
        , isDrawn_(items_.size())
        , isSettled_(items_.size())
        , isUsed_(entries.size()) {}

    Items drawn() && {
        for (Index item = 0; item < items_.size(); ++item) matchByIdentifier(item);
        for (Index item = 0; item < items_.size(); ++item) matchByPlace(item);
        for (Index item = 0; item < items_.size(); ++item) judgeRest(item);
        Items drawn;
        for (Index item = 0; item < items_.size(); ++item)
            if (isDrawn_[item]) drawn.push_back(std::move(items_[item]));
        return drawn;
    }

  private:
    bool isOwners(Index entry, Index item) const {
        return entries_[entry].processIdentifier == items_[item].processIdentifier;
    }

    bool isSameByName(Index entry, Index item) const {
        const auto& name = items_[item].accessibilityIdentifier;
        return name && isOwners(entry, item) && entries_[entry].canonicalIdentifier == name;
    }

    /// The agent's own elements that no identifier tells can be anybody's.
    bool canBe(Index entry, Index item) const {
        const auto& found = entries_[entry];
        const bool isNameless = found.processIdentifier == agent_ && !found.canonicalIdentifier;
        return !isUsed_[entry] && found.frame && (isNameless || isOwners(entry, item));
    }

    bool couldBeAt(Index entry, Index item) const {
        return canBe(entry, item) && isAt(entries_[entry], items_[item].frame);
    }

    template <class Condition>
    std::vector<Index> entriesWhere(const Condition& condition) const {
        std::vector<Index> found;
        for (Index entry = 0; entry < entries_.size(); ++entry)
            if (condition(entry)) found.push_back(entry);
        return found;
    }

    template <class Condition>
    std::vector<Index> openItemsWhere(const Condition& condition) const {
        std::vector<Index> found;
        for (Index item = 0; item < items_.size(); ++item)
            if (!isSettled_[item] && condition(item)) found.push_back(item);
        return found;
    }

    void take(Index entry, Index item) {
        isUsed_[entry] = true;
        isSettled_[item] = true;
        isDrawn_[item] = entries_[entry].frame.has_value();
        if (isDrawn_[item]) items_[item].frame = *entries_[entry].frame;
    }

    void matchByIdentifier(Index item) {
        const auto same = entriesWhere([&](Index entry) { return isSameByName(entry, item); });
        const auto rivals =
            openItemsWhere([&](Index other) { return !same.empty() && isSameByName(same.front(), other); });
        if (same.size() == 1 && rivals.size() == 1) take(same.front(), item);
    }

    void matchByPlace(Index item) {
        if (isSettled_[item]) return;
        const auto there = entriesWhere([&](Index entry) { return couldBeAt(entry, item); });
        if (there.empty()) return;
        const auto rivals = openItemsWhere([&](Index other) { return couldBeAt(there.front(), other); });
        if (there.size() == 1 && rivals.size() == 1) return take(there.front(), item);
        isSettled_[item] = isDrawn_[item] = true;
    }

    /// What is left of an owner's elements belongs to what is left of its items, wherever those claim to be.
    void judgeRest(Index item) {
        if (isSettled_[item]) return;
        const auto rest =
            entriesWhere([&](Index entry) { return canBe(entry, item) && isOwners(entry, item); });
        const auto rivals = openItemsWhere(
            [&](Index other) { return items_[other].processIdentifier == items_[item].processIdentifier; });
        if (rest.size() == 1 && rivals.size() == 1) return take(rest.front(), item);
        isDrawn_[item] = !rest.empty();
    }

    Items items_;
    std::span<const HostedEntry> entries_;
    ProcessIdentifier agent_;
    std::vector<bool> isDrawn_;
    std::vector<bool> isSettled_;
    std::vector<bool> isUsed_;
};

} // namespace

Items drawnByAgent(Items items, std::span<const HostedEntry> entries, ProcessIdentifier agent) {
    return HostedMatch(std::move(items), entries, agent).drawn();
}

} // namespace tavrin
