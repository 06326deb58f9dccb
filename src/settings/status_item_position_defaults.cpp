#include "settings/status_item_position_defaults.h"

#include "base/ascii.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tavrin {

namespace {

// The keys are AppKit's own.
constexpr std::string_view positionKey = "NSStatusItem Preferred Position ";
constexpr std::string_view hidingFlagKey = "NSStatusItem VisibleCC ";
constexpr std::array keyPrefixes{positionKey, std::string_view("NSStatusItem Visible "), hidingFlagKey};
constexpr std::string_view byHostSuffix = "_v6";

constexpr std::string_view controlPrefix = "Skerrow.Main.v";
constexpr std::string_view spacerPrefix = "Skerrow.Spacer.v";
constexpr std::string_view legacySeparatorPrefix = "Skerrow.Separator.v";

std::string joined(std::string_view left, std::string_view right) { return std::string(left).append(right); }

/// The autosave name in a key of a status item; none for other keys.
std::optional<std::string_view> nameInKey(std::string_view key) {
    for (const auto prefix : keyPrefixes) {
        if (key.starts_with(prefix)) return key.substr(prefix.size());
    }
    return std::nullopt;
}

} // namespace

StatusItemPositionDefaults::StatusItemPositionDefaults(Defaults& defaults)
    : defaults_(defaults)
    , own_(defaults.ownDomain()) {}

std::string StatusItemPositionDefaults::byHostAutosaveName(std::string_view autosaveName) {
    std::string name(autosaveName);
    const auto separator = name.find('_');
    if (separator != std::string::npos && separator + 1 < name.size()) {
        auto& first = name[separator + 1];
        first = lowercasedAscii(first);
    }
    return joined(name, byHostSuffix);
}

bool StatusItemPositionDefaults::hasValue(std::string_view autosaveName) const {
    return defaults_.value(own_, joined(positionKey, autosaveName)) ||
           defaults_.value(global_, joined(positionKey, byHostAutosaveName(autosaveName)));
}

std::optional<double> StatusItemPositionDefaults::preferredPosition(std::string_view autosaveName) const {
    if (const auto own = numberIn(defaults_.value(own_, joined(positionKey, autosaveName)))) return own;
    return numberIn(defaults_.value(global_, joined(positionKey, byHostAutosaveName(autosaveName))));
}

void StatusItemPositionDefaults::seed(std::string_view autosaveName, Force force, double position) {
    if (force == Force::No && hasValue(autosaveName)) return;
    defaults_.set(own_, joined(positionKey, autosaveName), {position});
    defaults_.synchronize(own_);
}

void StatusItemPositionDefaults::remove(const std::function<bool(std::string_view)>& selects) {
    removeIn(own_, "", selects);
    removeIn(global_, byHostSuffix, selects);
}

void StatusItemPositionDefaults::removeIn(const DefaultsDomain& domain, std::string_view nameSuffix,
                                          const std::function<bool(std::string_view)>& selects) {
    bool hasChanged = false;
    for (const auto& key : defaults_.keys(domain)) {
        auto name = nameInKey(key);
        if (!name || !name->ends_with(nameSuffix)) continue;
        name->remove_suffix(nameSuffix.size());
        if (!selects(*name)) continue;
        defaults_.remove(domain, key);
        hasChanged = true;
    }
    if (hasChanged) defaults_.synchronize(domain);
}

void StatusItemPositionDefaults::forgetHidingFlag(std::string_view autosaveName) {
    removeIfFalse(own_, joined(hidingFlagKey, autosaveName));
    removeIfFalse(global_, joined(hidingFlagKey, byHostAutosaveName(autosaveName)));
}

void StatusItemPositionDefaults::removeIfFalse(const DefaultsDomain& domain, const std::string& key) {
    const auto stored = defaults_.value(domain, key);
    if (!stored || !isFalse(*stored)) return;
    defaults_.remove(domain, key);
    defaults_.synchronize(domain);
}

void StatusItemPositionDefaults::removeSuperseded(std::span<const std::string> currentAutosaveNames,
                                                  std::int64_t currentVersion) {
    remove([&](std::string_view name) {
        const auto version = StatusItemAutosaveName::version(name);
        const bool isCurrent = std::ranges::find(currentAutosaveNames, name) != currentAutosaveNames.end();
        return version && *version < currentVersion && !isCurrent;
    });
}

namespace StatusItemAutosaveName {

std::string control(std::int64_t version) { return joined(controlPrefix, std::to_string(version)); }

std::string spacer(std::int64_t version) { return joined(spacerPrefix, std::to_string(version)); }

std::string legacySeparator(std::int64_t version) {
    return joined(legacySeparatorPrefix, std::to_string(version));
}

std::optional<std::int64_t> version(std::string_view autosaveName) {
    for (const auto prefix : {controlPrefix, spacerPrefix, legacySeparatorPrefix}) {
        if (!autosaveName.starts_with(prefix)) continue;
        const auto digits = autosaveName.substr(prefix.size());
        std::int64_t version = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), version);
        if (error == std::errc{} && end == digits.data() + digits.size()) return version;
    }
    return std::nullopt;
}

} // namespace StatusItemAutosaveName

} // namespace tavrin
