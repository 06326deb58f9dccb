#include "hiding/hidden_items.h"

#include <utility>

namespace tavrin {

HiddenItems::HiddenItems(Settings& settings, std::string ownBundleIdentifier)
    : settings_(settings)
    , ownBundleIdentifier_(std::move(ownBundleIdentifier))
    , identifiers_(settings.strings(Settings::hiddenItemIdentifiersKey)) {}

void HiddenItems::set(std::span<const std::string> identifiers, bool hidden, const Setting& setting) {
    auto chosen = identifiers_.get();
    for (const auto& identifier : identifiers) chosen = setting(identifier, hidden, chosen);
    identifiers_.set(chosen);
    settings_.setStrings(Settings::hiddenItemIdentifiersKey, chosen);
}

} // namespace tavrin
