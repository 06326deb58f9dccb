#pragma once

#include "accessibility/attributes.h"
#include "base/geometry.h"
#include "concurrency/waits.h"
#include "pins/store/pinned_status_item_reference.h"
#include "platform/accessibility.h"
#include "platform/workspace.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// A status item that an application has now.
struct LiveStatusItem {
    ProcessIdentifier processIdentifier = -1;
    std::string bundleIdentifier;
    std::string applicationName;
    AccessibilityElement element;
    std::size_t index = 0; // among those of the application
    std::optional<std::string> identifier;
    std::optional<std::string> label;
    std::optional<Rect> frame;
    bool isEnabled = false;
    std::vector<std::string> actions;

    const std::string& displayName() const { return label ? *label : applicationName; }

    PinnedStatusItemReference::Candidate candidate() const { return {identifier, label}; }
};

/// Reads status items through Accessibility, with at most three messages an item. On a background queue.
namespace LiveStatusItems {

using Items = std::expected<std::vector<LiveStatusItem>, ReadFailure>;

/// The items of one application, in the order of its tree.
Items items(Accessibility& accessibility, const RunningApplication& application,
            const AbandonFlag& abandoned);

/// The items of every running application with this bundle identifier. Fails only when no application has any
/// and one of them couldn't be read.
Items items(Accessibility& accessibility, const std::vector<RunningApplication>& running,
            std::string_view bundleIdentifier, const AbandonFlag& abandoned);

/// The items of all running applications, application by application. Applications that can't be read are
/// left out, except when Accessibility is denied.
Items all(Accessibility& accessibility, const std::vector<RunningApplication>& running,
          const AbandonFlag& abandoned);

} // namespace LiveStatusItems

} // namespace tavrin
