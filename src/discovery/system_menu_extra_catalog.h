#pragma once

#include "base/geometry.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

class Defaults;
class Text;
class Workspace;

/// A menu extra that the system's preferences list.
struct SystemMenuExtraDescriptor {
    std::string canonicalIdentifier;         // lower case
    std::optional<double> preferredPosition; // larger is further left

    bool operator==(const SystemMenuExtraDescriptor&) const = default;
};

/// Facts about Apple's own menu extras, whose Accessibility elements often carry no usable identifier.
namespace SystemMenuExtraCatalog {

/// The canonical identifier for a token such as "wifi": a raw identifier or label, folded to bare letters and
/// digits.
std::optional<std::string_view> identifierForToken(std::string_view token);

/// The English name that macOS shows for the extra.
std::optional<std::string_view> displayName(std::string_view canonicalIdentifier);

/// The system's symbol nearest to the extra's picture, which tells it from others of the same owner.
std::optional<std::string_view> symbol(std::string_view canonicalIdentifier);

/// Whether macOS keeps the extra in its place, as it does Clock and Control Center.
bool isFixed(std::string_view canonicalIdentifier);

bool isSpotlightOwner(std::string_view lowercasedBundleIdentifier);

/// The extras in the preferences of "com.apple.systemuiserver", in their order; empty when there are none.
/// Any thread.
std::vector<SystemMenuExtraDescriptor> currentDescriptors(const Defaults& defaults,
                                                          const Workspace& workspace, const Text& text);

/// Pairs extras with the frames of unidentified items, smallest preferred position with the rightmost item.
/// When the pairing is not certain every identifier is absent.
std::vector<std::optional<std::string>>
matchCanonicalIdentifiers(std::span<const SystemMenuExtraDescriptor> descriptors,
                          std::span<const Rect> itemFrames);

} // namespace SystemMenuExtraCatalog

} // namespace tavrin
