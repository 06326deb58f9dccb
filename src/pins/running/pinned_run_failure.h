#pragma once

#include "pins/running/pinned_action_policy.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace tavrin {

/// The reason why a run came to nothing.
struct PinnedRunFailure {
    struct AppNotRunning {
        std::string application;
    };

    struct StatusItemMissing {
        std::string application;
    };

    struct MenuDidNotOpen {
        std::string application;
    };

    struct ItemChanged {
        std::string step;
        std::vector<std::string> available; // titles of what is there instead
    };

    struct Ambiguous {
        std::string step;
        std::size_t count = 0;
    };

    struct Excluded {
        std::string title;
        PinnedActionPolicy::NodeExclusion reason{};
    };

    struct PressFailed {
        std::string title;
    };

    struct TimedOut {
        std::string application;
    };

    struct AccessibilityDenied {};

    std::variant<AppNotRunning, StatusItemMissing, MenuDidNotOpen, ItemChanged, Ambiguous, Excluded,
                 PressFailed, TimedOut, AccessibilityDenied>
        kind;

    template <class Kind>
    bool is() const {
        return std::holds_alternative<Kind>(kind);
    }

    /// The reason in words for the user.
    std::string message() const;
};

} // namespace tavrin
