#include "discovery/item_snapshots.h"

#include "discovery/menu_bar_item_scan_policy.h"

#include <cstddef>

namespace tavrin {

std::vector<MenuBarItemSnapshot> snapshotsOf(const RunningApplicationSnapshot& application,
                                             std::span<const ItemFacts> facts, const Text& text) {
    std::vector<std::optional<std::string>> canonical;
    for (const auto& item : facts) canonical.push_back(item.canonicalIdentifier);
    const auto identifiers =
        MenuBarItemScanPolicy::itemIdentifiers(application.bundleIdentifier, canonical, text);

    std::vector<MenuBarItemSnapshot> items;
    for (std::size_t i = 0; i < facts.size(); ++i) {
        const auto& [identifier, label, frame] = facts[i];
        items.push_back({.id = identifiers[i],
                         .name = MenuBarItemScanPolicy::itemName(application.localizedName, identifier, label,
                                                                 i, facts.size(), text),
                         .applicationName = application.localizedName,
                         .bundleIdentifier = application.bundleIdentifier,
                         .processIdentifier = application.processIdentifier,
                         .isOwnerRegular = application.isRegular,
                         .accessibilityIdentifier = identifier,
                         .statusItemIndex = static_cast<int>(i),
                         .frame = frame,
                         .isMovable = MenuBarItemScanPolicy::isMovable(identifier)});
    }
    return items;
}

} // namespace tavrin
