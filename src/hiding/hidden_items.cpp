#include "hiding/hidden_items.h"

#include "discovery/item_identifier.h"

#include <set>
#include <utility>

namespace tavrin {

HiddenItems::HiddenItems(Settings& settings, std::string ownBundleIdentifier)
    : settings_(settings)
    , ownBundleIdentifier_(std::move(ownBundleIdentifier))
    , identifiers_(settings.strings(Settings::hiddenItemIdentifiersKey)) {}

void HiddenItems::set(std::span<const std::string> identifiers, bool hidden) {
    auto chosen = identifiers_.get();
    for (const auto& identifier : identifiers) {
        const auto key = comparableItemIdentifier(identifier);
        std::erase_if(chosen, [&](const auto& stored) { return comparableItemIdentifier(stored) == key; });
        if (hidden) chosen.insert(identifier);
    }
    identifiers_.set(chosen);
    settings_.setStrings(Settings::hiddenItemIdentifiersKey, chosen);
}

} // namespace tavrin
