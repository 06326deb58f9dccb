#pragma once

#include "platform/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tavrin {

/// Names one of an application's status items by the facts that were known when the pin was made.
struct PinnedStatusItemReference {
    /// The facts known of a live status item.
    struct Candidate {
        std::optional<std::string> identifier;
        std::optional<std::string> label;

        bool operator==(const Candidate&) const = default;
    };

    std::optional<std::string> identifier; // the Accessibility identifier
    std::optional<std::string> label;      // the Accessibility label or title
    std::int64_t index = 0;                // among the application's status items

    /// The index of the item that is meant among the application's live status items in their present order;
    /// none rather than a guess between several. Any thread.
    std::optional<std::size_t> select(std::span<const Candidate> candidates, const Text& text) const;

    bool operator==(const PinnedStatusItemReference&) const = default;
};

} // namespace tavrin
