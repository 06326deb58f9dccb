#include "hiding/skerrow_policy.h"

#include "discovery/item_identifier.h"

#include <algorithm>
#include <iterator>

namespace tavrin {

namespace {

HiddenSet comparable(const HiddenSet& identifiers) {
    HiddenSet result;
    for (const auto& identifier : identifiers) result.insert(comparableItemIdentifier(identifier));
    return result;
}

} // namespace

SkerrowPolicy::SkerrowPolicy(std::span<const MenuBarItem> items, const HiddenSet& hiddenItemIdentifiers,
                             std::string_view ownBundleIdentifier) {
    const auto hidden = comparable(hiddenItemIdentifiers);
    for (const auto& [snapshot, icon] : items) {
        if (snapshot.bundleIdentifier == ownBundleIdentifier) continue;
        const bool isWantedHidden = hidden.contains(comparableItemIdentifier(snapshot.id));
        assignments_.push_back({.itemIdentifier = snapshot.id,
                                .processIdentifier = snapshot.processIdentifier,
                                .desiredZone = isWantedHidden ? MenuBarZone::hidden : MenuBarZone::visible,
                                .physicalZone = snapshot.zone});
    }
}

std::vector<MenuBarItemAssignment> SkerrowPolicy::pendingMoves() const {
    return misplaced(MenuBarZone::hidden);
}

std::vector<MenuBarItemAssignment> SkerrowPolicy::trayOverflow() const {
    return misplaced(MenuBarZone::visible);
}

std::vector<MenuBarItemAssignment> SkerrowPolicy::misplaced(MenuBarZone desired) const {
    std::vector<MenuBarItemAssignment> found;
    std::ranges::copy_if(assignments_, std::back_inserter(found), [&](const auto& assignment) {
        return assignment.desiredZone == desired && assignment.physicalZone != desired;
    });
    return found;
}

bool isConfiguredHidden(const MenuBarItemSnapshot& item, const HiddenSet& hiddenItemIdentifiers) {
    return comparable(hiddenItemIdentifiers).contains(comparableItemIdentifier(item.id));
}

HiddenSet settingItem(const std::string& itemIdentifier, bool hidden, HiddenSet set) {
    const auto key = comparableItemIdentifier(itemIdentifier);
    std::erase_if(set, [&](const auto& stored) { return comparableItemIdentifier(stored) == key; });
    if (hidden) set.insert(itemIdentifier);
    return set;
}

double collapsedSpacerLength(std::span<const Screen> screens) {
    constexpr double withoutScreens = 3456; // twice the width of the widest built-in display
    if (screens.empty()) return withoutScreens;
    const auto widest =
        std::ranges::max(screens, {}, [](const Screen& screen) { return screen.frame.width; });
    return std::clamp(2 * widest.frame.width, 500.0, 10'000.0);
}

} // namespace tavrin
