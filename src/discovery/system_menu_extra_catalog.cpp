#include "discovery/system_menu_extra_catalog.h"

#include "platform/defaults.h"
#include "platform/text.h"
#include "platform/workspace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

namespace tavrin::SystemMenuExtraCatalog {

namespace {

using Row = std::pair<std::string_view, std::string_view>;

constexpr std::array appleIdentifierByToken{
    Row{"airdrop", "com.apple.menuextra.airdrop"},
    Row{"airplay", "com.apple.menuextra.airplay"},
    Row{"battery", "com.apple.menuextra.battery"},
    Row{"bluetooth", "com.apple.menuextra.bluetooth"},
    Row{"clock", "com.apple.menuextra.clock"},
    Row{"controlcenter", "com.apple.menuextra.controlcenter"},
    Row{"display", "com.apple.menuextra.display"},
    Row{"focus", "com.apple.menuextra.focusmode"},
    Row{"focusmode", "com.apple.menuextra.focusmode"},
    Row{"nowplaying", "com.apple.menuextra.now-playing"},
    Row{"siri", "com.apple.menuextra.siri"},
    Row{"sound", "com.apple.menuextra.sound"},
    Row{"spotlight", "com.apple.menuextra.spotlight"},
    Row{"weather", "com.apple.weather.menu"},
    Row{"wifi", "com.apple.menuextra.wifi"},
};

constexpr std::array displayNameByAppleIdentifier{
    Row{"com.apple.menuextra.airdrop", "AirDrop"},
    Row{"com.apple.menuextra.airplay", "AirPlay"},
    Row{"com.apple.menuextra.battery", "Battery"},
    Row{"com.apple.menuextra.bluetooth", "Bluetooth"},
    Row{"com.apple.menuextra.clock", "Clock"},
    Row{"com.apple.menuextra.controlcenter", "Control Center"},
    Row{"com.apple.menuextra.display", "Display"},
    Row{"com.apple.menuextra.focusmode", "Focus"},
    Row{"com.apple.menuextra.now-playing", "Now Playing"},
    Row{"com.apple.menuextra.siri", "Siri"},
    Row{"com.apple.menuextra.sound", "Sound"},
    Row{"com.apple.menuextra.spotlight", "Spotlight"},
    Row{"com.apple.menuextra.timemachine", "Time Machine"},
    Row{"com.apple.weather.menu", "Weather"},
    Row{"com.apple.menuextra.wifi", "Wi-Fi"},
};

constexpr std::array symbolByAppleIdentifier{
    Row{"com.apple.menuextra.airdrop", "dot.radiowaves.left.and.right"},
    Row{"com.apple.menuextra.airplay", "airplayvideo"},
    Row{"com.apple.menuextra.battery", "battery.100percent"},
    Row{"com.apple.menuextra.bluetooth", "wave.3.right"},
    Row{"com.apple.menuextra.clock", "clock"},
    Row{"com.apple.menuextra.controlcenter", "switch.2"},
    Row{"com.apple.menuextra.display", "display"},
    Row{"com.apple.menuextra.focusmode", "moon"},
    Row{"com.apple.menuextra.now-playing", "play.circle"},
    Row{"com.apple.menuextra.siri", "mic"},
    Row{"com.apple.menuextra.sound", "speaker.wave.2"},
    Row{"com.apple.menuextra.spotlight", "magnifyingglass"},
    Row{"com.apple.menuextra.timemachine", "clock.arrow.circlepath"},
    Row{"com.apple.weather.menu", "sun.max"},
    Row{"com.apple.menuextra.wifi", "wifi"},
};

constexpr std::array<std::string_view, 2> fixedAppleIdentifiers{"com.apple.menuextra.clock",
                                                                "com.apple.menuextra.controlcenter"};
constexpr std::array<std::string_view, 2> spotlightOwners{"com.apple.spotlight", "com.apple.campo"};

std::optional<std::string_view> lookUp(std::span<const Row> table, std::string_view key) {
    const auto found = std::ranges::find(table, key, &Row::first);
    if (found == table.end()) return std::nullopt;
    return found->second;
}

std::vector<std::string> menuExtraPaths(const Defaults& defaults, const DefaultsDomain& domain) {
    const auto stored = defaults.value(domain, "menuExtras");
    const auto* array = stored ? std::get_if<DefaultsArray>(&stored->value) : nullptr;
    std::vector<std::string> paths;
    if (!array) return paths;
    for (const auto& element : *array) {
        const auto* path = std::get_if<std::string>(&element.value);
        if (!path) return {};
        paths.push_back(*path);
    }
    return paths;
}

std::vector<std::size_t> indicesUpTo(std::size_t count) {
    std::vector<std::size_t> indices(count);
    std::iota(indices.begin(), indices.end(), std::size_t{0});
    return indices;
}

} // namespace

std::optional<std::string_view> identifierForToken(std::string_view token) {
    return lookUp(appleIdentifierByToken, token);
}

std::optional<std::string_view> displayName(std::string_view canonicalIdentifier) {
    return lookUp(displayNameByAppleIdentifier, canonicalIdentifier);
}

std::optional<std::string_view> symbol(std::string_view canonicalIdentifier) {
    return lookUp(symbolByAppleIdentifier, canonicalIdentifier);
}

bool isFixed(std::string_view canonicalIdentifier) {
    return std::ranges::find(fixedAppleIdentifiers, canonicalIdentifier) != fixedAppleIdentifiers.end();
}

bool isSpotlightOwner(std::string_view lowercasedBundleIdentifier) {
    return std::ranges::find(spotlightOwners, lowercasedBundleIdentifier) != spotlightOwners.end();
}

std::vector<SystemMenuExtraDescriptor> currentDescriptors(const Defaults& defaults,
                                                          const Workspace& workspace, const Text& text) {
    const DefaultsDomain domain{.name = "com.apple.systemuiserver"};
    std::vector<SystemMenuExtraDescriptor> descriptors;
    for (const auto& path : menuExtraPaths(defaults, domain)) {
        const auto identifier = workspace.bundleIdentifierAt(path);
        if (!identifier) continue;
        auto canonical = text.lowercased(*identifier);
        if (!canonical.starts_with("com.apple.menuextra.")) continue;
        descriptors.push_back({.canonicalIdentifier = std::move(canonical),
                               .preferredPosition = numberIn(defaults.value(
                                   domain, "NSStatusItem Preferred Position " + *identifier))});
    }
    return descriptors;
}

std::vector<std::optional<std::string>>
matchCanonicalIdentifiers(std::span<const SystemMenuExtraDescriptor> descriptors,
                          std::span<const Rect> itemFrames) {
    std::vector<std::optional<std::string>> identifiers(itemFrames.size());
    if (descriptors.size() != itemFrames.size() || descriptors.empty()) return identifiers;
    if (descriptors.size() == 1) {
        identifiers[0] = descriptors[0].canonicalIdentifier;
        return identifiers;
    }
    // Both are others' words, and what is no number has no place in an order.
    const auto hasPosition = [](const auto& descriptor) {
        return descriptor.preferredPosition && std::isfinite(*descriptor.preferredPosition);
    };
    const auto hasPlace = [](const Rect& frame) { return frame.isFinite(); };
    if (!std::ranges::all_of(descriptors, hasPosition) || !std::ranges::all_of(itemFrames, hasPlace))
        return identifiers;

    auto byPosition = indicesUpTo(descriptors.size());
    std::ranges::stable_sort(byPosition, {},
                             [&](auto index) { return *descriptors[index].preferredPosition; });
    auto fromRight = indicesUpTo(itemFrames.size());
    std::ranges::stable_sort(fromRight, std::ranges::greater{},
                             [&](auto index) { return itemFrames[index].midX(); });
    for (std::size_t k = 0; k < fromRight.size(); ++k) {
        identifiers[fromRight[k]] = descriptors[byPosition[k]].canonicalIdentifier;
    }
    return identifiers;
}

} // namespace tavrin::SystemMenuExtraCatalog
