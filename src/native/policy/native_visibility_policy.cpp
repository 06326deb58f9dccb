#include "native/policy/native_visibility_policy.h"

#include "base/ascii.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "native/policy/menu_bar_system_item.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace tavrin::NativeVisibilityPolicy {

namespace {

constexpr std::string_view controlCenter = "com.apple.controlcenter";
constexpr std::string_view separator = "::";
constexpr std::string_view identifierMark = "::identifier:";
constexpr int systemItemNumberMax = 255;

using Pair = std::pair<std::string_view, std::string_view>;
constexpr std::array bundleAliases{Pair{"com.apple.spotlight", "com.apple.campo"},
                                   Pair{"com.apple.campo", "com.apple.spotlight"}};

std::string bundlePart(std::string_view identifier) {
    return lowercasedAscii(identifier.substr(0, identifier.find(separator)));
}

std::optional<std::string> canonicalPart(std::string_view identifier) {
    const auto mark = identifier.find(identifierMark);
    if (mark == std::string_view::npos) return std::nullopt;
    return lowercasedAscii(identifier.substr(mark + identifierMark.size()));
}

bool isOfControlCenter(std::string_view identifier) { return bundlePart(identifier) == controlCenter; }

/// Null when it is none of those with a number.
const MenuBarSystemItem* systemItem(std::string_view identifier) {
    const auto canonical = canonicalPart(identifier);
    return canonical ? MenuBarSystemItem::forCanonicalIdentifier(*canonical) : nullptr;
}

/// The bundle with the other owners of its items, in lower case.
std::set<std::string> family(std::string_view bundleIdentifier) {
    const auto bundle = lowercasedAscii(bundleIdentifier);
    std::set<std::string> members{bundle};
    for (const auto& [one, other] : bundleAliases)
        if (one == bundle) members.emplace(other);
    return members;
}

template <class Element>
std::set<Element> without(const std::set<Element>& all, const std::set<Element>& excluded) {
    std::set<Element> rest;
    std::ranges::set_difference(all, excluded, std::inserter(rest, rest.end()));
    return rest;
}

NativeVisibilityPlan planWithholding(const std::set<std::string>& bundles, const std::set<int>& numbers,
                                     std::span<const std::string> running, const std::string& own) {
    std::set<std::string> allowed{own};
    std::ranges::copy_if(running, std::inserter(allowed, allowed.end()),
                         [&](const auto& bundle) { return !bundles.contains(lowercasedAscii(bundle)); });
    NativeVisibilityPlan plan{{allowed.begin(), allowed.end()}, {}};
    for (int number = 0; number <= systemItemNumberMax; ++number)
        if (!numbers.contains(number)) plan.allowedSystemItems.push_back(number);
    return plan;
}

HiddenSet setOf(const std::optional<std::string>& identifier) {
    return identifier ? HiddenSet{*identifier} : HiddenSet{};
}

} // namespace

std::set<std::string> hiddenBundleIdentifiers(const HiddenSet& hidden) {
    std::set<std::string> bundles;
    for (const auto& identifier : hidden)
        if (!isOfControlCenter(identifier)) bundles.merge(family(bundlePart(identifier)));
    return bundles;
}

std::set<int> hiddenSystemItemNumbers(const HiddenSet& hidden) {
    std::set<int> numbers;
    for (const auto& identifier : hidden) {
        const auto* item = isOfControlCenter(identifier) ? systemItem(identifier) : nullptr;
        if (item && !item->isFixed) numbers.insert(item->number);
    }
    return numbers;
}

NativeVisibilityPlan plan(const HiddenSet& hidden, std::span<const std::string> runningBundleIdentifiers,
                          const std::string& ownBundleIdentifier) {
    return planWithholding(hiddenBundleIdentifiers(hidden), hiddenSystemItemNumbers(hidden),
                           runningBundleIdentifiers, ownBundleIdentifier);
}

std::optional<NativeVisibilityPlan> expandedPlan(const Expanded& state,
                                                 std::span<const std::string> runningBundleIdentifiers,
                                                 const std::string& ownBundleIdentifier) {
    const bool hasNotch = std::ranges::any_of(state.screens, MenuBarScreenGeometry::hasNotch);
    if (!hasNotch || state.isCollapsed || state.isSuppressed) return std::nullopt;
    const auto allowed = setOf(state.temporarilyAllowed);
    auto bundles = without(hiddenBundleIdentifiers(state.rescued), hiddenBundleIdentifiers(allowed));
    bundles.erase(lowercasedAscii(ownBundleIdentifier));
    const auto numbers = without(hiddenSystemItemNumbers(state.rescued), hiddenSystemItemNumbers(allowed));
    if (bundles.empty() && numbers.empty()) return std::nullopt;
    return planWithholding(bundles, numbers, runningBundleIdentifiers, ownBundleIdentifier);
}

HiddenSet settingBundle(const std::string& bundleIdentifier, bool hidden, const HiddenSet& set) {
    const auto members = family(bundleIdentifier);
    HiddenSet result;
    std::ranges::copy_if(set, std::inserter(result, result.end()), [&](const auto& identifier) {
        return isOfControlCenter(identifier) || !members.contains(bundlePart(identifier));
    });
    if (hidden) result.insert(bundleIdentifier);
    return result;
}

HiddenSet settingSystemItem(std::string_view canonicalIdentifier, bool hidden, const HiddenSet& set) {
    const auto canonical = lowercasedAscii(canonicalIdentifier);
    HiddenSet result;
    std::ranges::copy_if(set, std::inserter(result, result.end()), [&](const auto& identifier) {
        return !isOfControlCenter(identifier) || canonicalPart(identifier) != canonical;
    });
    if (hidden) result.insert(std::string(controlCenter) + std::string(identifierMark) + canonical);
    return result;
}

HiddenSet setting(std::string_view itemIdentifier, bool hidden, const HiddenSet& set) {
    if (!isOfControlCenter(itemIdentifier))
        return settingBundle(std::string(itemIdentifier.substr(0, itemIdentifier.find(separator))), hidden,
                             set);
    const auto canonical = canonicalPart(itemIdentifier);
    return canonical ? settingSystemItem(*canonical, hidden, set) : set;
}

bool isHidden(std::string_view itemIdentifier, const HiddenSet& set) {
    if (!isOfControlCenter(itemIdentifier))
        return hiddenBundleIdentifiers(set).contains(bundlePart(itemIdentifier));
    const auto* item = systemItem(itemIdentifier);
    return item && hiddenSystemItemNumbers(set).contains(item->number);
}

bool canWithhold(std::string_view itemIdentifier) {
    if (!isOfControlCenter(itemIdentifier)) return true;
    const auto* item = systemItem(itemIdentifier);
    return item && !item->isFixed;
}

std::string unitOf(std::string_view itemIdentifier) {
    return isOfControlCenter(itemIdentifier) ? lowercasedAscii(itemIdentifier) : bundlePart(itemIdentifier);
}

} // namespace tavrin::NativeVisibilityPolicy
