#pragma once

#include "discovery/hiding_boundary.h"
#include "discovery/menu_bar_item.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

class Text;

/// The rules by which a scan names, identifies, places and orders items. The identifiers key the user's
/// choice, so they must come out the same on every scan.
namespace MenuBarItemScanPolicy {

/// Whether the bundle is one of Apple's, judged by its identifier.
bool isApple(std::string_view bundleIdentifier);

/// Whether the frame has a finite origin and a size above 0, narrower than 1000 and lower than 100 points.
bool isValidFrame(const Rect& frame);

/// `raw` itself when it looks like an identifier that somebody chose, such as "com.sample.menu-item".
std::optional<std::string> normalizedStableAccessibilityIdentifier(std::string_view raw, const Text& text);

/// The one identifier made of what an element says of itself; none when it does not say enough. `width` in
/// points.
std::optional<std::string> canonicalIdentifier(std::string_view bundleIdentifier,
                                               const std::optional<std::string>& rawIdentifier,
                                               const std::optional<std::string>& label, double width,
                                               const Text& text);

/// Finds a remembered item among an owner's present ones: by identifier where exactly one has it, else by
/// index, which is not trusted for Apple's owners.
std::optional<std::size_t> fallbackItemIndex(std::string_view bundleIdentifier,
                                             std::span<const std::optional<std::string>> itemIdentifiers,
                                             const std::optional<std::string>& requested, int statusItemIndex,
                                             const Text& text);

/// The identifier of each item of one application, given the canonical ones.
std::vector<std::string> itemIdentifiers(std::string_view bundleIdentifier,
                                         std::span<const std::optional<std::string>> canonicalIdentifiers,
                                         const Text& text);

/// The name of an application's item for a person; `count` is how many items the application has.
std::string itemName(std::string_view applicationName, const std::optional<std::string>& canonicalIdentifier,
                     const std::optional<std::string>& label, std::size_t index, std::size_t count,
                     const Text& text);

/// Hidden when the middle of the frame lies left of `boundaryX`.
MenuBarZone zone(const Rect& frame, double boundaryX);

/// The zones of all items that one scan has found.
void setZones(std::span<MenuBarItemSnapshot> items, const HidingBoundary& boundary);

bool isMovable(const std::optional<std::string>& canonicalIdentifier);

/// Sorts visible before hidden, then by application name, then from left to right; equal ones keep their
/// order.
void sort(std::vector<MenuBarItemSnapshot>& items, const Text& text);

} // namespace MenuBarItemScanPolicy

} // namespace tavrin
