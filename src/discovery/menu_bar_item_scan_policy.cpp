#include "discovery/menu_bar_item_scan_policy.h"

#include "discovery/system_menu_extra_catalog.h"
#include "platform/text.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <ranges>
#include <set>
#include <utility>

namespace tavrin::MenuBarItemScanPolicy {

namespace {

constexpr std::string_view menuExtraPrefix = "com.apple.menuextra.";
constexpr std::string_view generatedIdentifierPrefix = "_NS:"; // AppKit numbers views that nobody named

std::optional<std::string> token(std::string_view text, const Text& rules) {
    const auto folded = rules.foldingCaseAndDiacritics(text);
    const auto found =
        SystemMenuExtraCatalog::identifierForToken(rules.lowercased(rules.keepingAlphanumerics(folded)));
    if (!found) return std::nullopt;
    return std::string(*found);
}

std::string trimmed(const std::optional<std::string>& text, const Text& rules) {
    return text ? rules.trimmed(*text) : std::string();
}

std::optional<std::string> appleIdentifierFromRaw(std::string_view raw, const Text& text) {
    auto lowercased = text.lowercased(raw);
    if (lowercased.starts_with(menuExtraPrefix)) return lowercased;
    if (auto hit = token(lowercased, text)) return hit;
    return normalizedStableAccessibilityIdentifier(raw, text);
}

std::optional<std::string> appleIdentifierFromLabel(const std::optional<std::string>& label, double width,
                                                    const Text& text) {
    if (!(width > 0) || !label) return std::nullopt;
    const auto lowercased = text.lowercased(text.trimmed(*label));
    return token(lowercased.substr(0, lowercased.find(',')), text);
}

bool isUsableInIdentifier(std::string_view canonical) {
    return !canonical.empty() && !canonical.starts_with(generatedIdentifierPrefix);
}

/// "com.apple.menuextra.now-playing" reads "Now Playing".
std::string nameFromMenuExtra(std::string_view canonicalIdentifier, const Text& text) {
    std::string words(canonicalIdentifier.substr(canonicalIdentifier.rfind('.') + 1));
    std::ranges::replace_if(words, [](char c) { return c == '-' || c == '_'; }, ' ');
    return text.capitalized(words);
}

using Items = std::span<MenuBarItemSnapshot>;

std::strong_ordering byZoneAndApplication(const MenuBarItemSnapshot& left, const MenuBarItemSnapshot& right,
                                          const Text& text) {
    if (left.zone != right.zone) {
        return left.zone == MenuBarZone::visible ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    if (left.applicationName == right.applicationName) return std::strong_ordering::equal;
    return text.compareIgnoringCase(left.applicationName, right.applicationName);
}

/// Sorts the items of one application by x into the places that they hold in `run`, so that applications
/// whose names differ only in case stay interleaved as the scan found them.
void sortOneApplication(Items run, const std::string& applicationName) {
    std::vector<std::size_t> places;
    std::vector<MenuBarItemSnapshot> own;
    for (std::size_t i = 0; i < run.size(); ++i) {
        if (run[i].applicationName != applicationName) continue;
        places.push_back(i);
        own.push_back(std::move(run[i]));
    }
    std::ranges::stable_sort(own, {}, [](const auto& item) { return item.frame.minX(); });
    for (std::size_t k = 0; k < places.size(); ++k) run[places[k]] = std::move(own[k]);
}

void sortWithinApplications(Items run) {
    std::set<std::string> names;
    for (const auto& item : run) names.insert(item.applicationName);
    for (const auto& name : names) sortOneApplication(run, name);
}

} // namespace

bool isApple(std::string_view bundleIdentifier) { return bundleIdentifier.starts_with("com.apple."); }

bool isValidFrame(const Rect& frame) {
    return frame.isFinite() && frame.width > 0 && frame.height > 0 && frame.width < 1000 &&
           frame.height < 100;
}

std::optional<std::string> normalizedStableAccessibilityIdentifier(std::string_view raw, const Text& text) {
    if (raw.starts_with(generatedIdentifierPrefix)) return std::nullopt;
    std::size_t parts = 0;
    for (const auto range : std::views::split(raw, '.')) {
        std::string part(range.begin(), range.end());
        if (part.empty()) return std::nullopt;
        std::erase_if(part, [](char c) { return c == '-' || c == '_'; });
        if (text.keepingAlphanumerics(part) != part) return std::nullopt;
        ++parts;
    }
    if (parts < 3) return std::nullopt;
    return std::string(raw);
}

std::optional<std::string> canonicalIdentifier(std::string_view bundleIdentifier,
                                               const std::optional<std::string>& rawIdentifier,
                                               const std::optional<std::string>& label, double width,
                                               const Text& text) {
    const auto raw = trimmed(rawIdentifier, text);
    if (SystemMenuExtraCatalog::isSpotlightOwner(text.lowercased(bundleIdentifier)) && raw.empty() &&
        trimmed(label, text).empty()) {
        return "com.apple.menuextra.spotlight";
    }
    if (isApple(bundleIdentifier)) {
        if (!raw.empty()) {
            if (auto identifier = appleIdentifierFromRaw(raw, text)) return identifier;
        }
        return appleIdentifierFromLabel(label, width, text);
    }
    if (!isUsableInIdentifier(raw)) return std::nullopt;
    return raw;
}

std::optional<std::size_t> fallbackItemIndex(std::string_view bundleIdentifier,
                                             std::span<const std::optional<std::string>> itemIdentifiers,
                                             const std::optional<std::string>& requested, int statusItemIndex,
                                             const Text& text) {
    const auto key = [&](const std::optional<std::string>& identifier) {
        return text.lowercased(trimmed(identifier, text));
    };
    if (const auto wanted = key(requested); !wanted.empty()) {
        const auto isWanted = [&](const auto& identifier) { return key(identifier) == wanted; };
        const auto matches = std::ranges::count_if(itemIdentifiers, isWanted);
        if (matches > 1) return std::nullopt;
        if (matches == 1) {
            const auto found = std::ranges::find_if(itemIdentifiers, isWanted);
            return static_cast<std::size_t>(found - itemIdentifiers.begin());
        }
    }
    if (isApple(bundleIdentifier)) return std::nullopt;
    if (statusItemIndex < 0 || static_cast<std::size_t>(statusItemIndex) >= itemIdentifiers.size())
        return std::nullopt;
    return static_cast<std::size_t>(statusItemIndex);
}

std::vector<std::string> itemIdentifiers(std::string_view bundleIdentifier,
                                         std::span<const std::optional<std::string>> canonicalIdentifiers,
                                         const Text& text) {
    std::vector<std::string> identifiers;
    const std::string bundle(bundleIdentifier);
    for (std::size_t i = 0; i < canonicalIdentifiers.size(); ++i) {
        const auto& canonical = canonicalIdentifiers[i];
        const auto usable = trimmed(canonical, text);
        if (isUsableInIdentifier(usable) && std::ranges::count(canonicalIdentifiers, canonical) == 1) {
            identifiers.push_back(bundle + "::identifier:" + usable);
        } else if (canonicalIdentifiers.size() == 1) {
            identifiers.push_back(bundle);
        } else {
            identifiers.push_back(bundle + "::status-item:" + std::to_string(i));
        }
    }
    return identifiers;
}

std::string itemName(std::string_view applicationName, const std::optional<std::string>& canonicalIdentifier,
                     const std::optional<std::string>& label, std::size_t index, std::size_t count,
                     const Text& text) {
    if (canonicalIdentifier) {
        if (const auto name = SystemMenuExtraCatalog::displayName(*canonicalIdentifier))
            return std::string(*name);
    }
    if (auto own = trimmed(label, text);
        !own.empty() && text.compareIgnoringCase(own, applicationName) != 0) {
        return own;
    }
    if (canonicalIdentifier && canonicalIdentifier->starts_with(menuExtraPrefix)) {
        return nameFromMenuExtra(*canonicalIdentifier, text);
    }
    std::string name(applicationName);
    return count == 1 ? name : name + " " + std::to_string(index + 1);
}

MenuBarZone zone(const Rect& frame, double boundaryX) {
    return frame.midX() < boundaryX ? MenuBarZone::hidden : MenuBarZone::visible;
}

void setZones(std::span<MenuBarItemSnapshot> items, const HidingBoundary& boundary) {
    std::vector<Rect> frames;
    std::ranges::transform(items, std::back_inserter(frames), &MenuBarItemSnapshot::frame);
    const double boundaryX = boundary.xAmong(frames);
    for (auto& item : items) item.zone = zone(item.frame, boundaryX);
}

bool isMovable(const std::optional<std::string>& canonicalIdentifier) {
    return !canonicalIdentifier || !SystemMenuExtraCatalog::isFixed(*canonicalIdentifier);
}

void sort(std::vector<MenuBarItemSnapshot>& items, const Text& text) {
    const auto order = [&](const auto& left, const auto& right) {
        return byZoneAndApplication(left, right, text);
    };
    std::ranges::stable_sort(items,
                             [&](const auto& left, const auto& right) { return order(left, right) < 0; });
    for (auto run = items.begin(); run != items.end();) {
        const auto end =
            std::find_if(run, items.end(), [&](const auto& item) { return order(*run, item) != 0; });
        sortWithinApplications(Items(run, end));
        run = end;
    }
}

} // namespace tavrin::MenuBarItemScanPolicy
