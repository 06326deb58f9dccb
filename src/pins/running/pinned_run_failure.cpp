#include "pins/running/pinned_run_failure.h"

#include "base/ascii.h"

#include <algorithm>

namespace tavrin {

namespace {

std::string quoted(const std::string& title) { return "\"" + title + "\""; }

struct Messages {
    std::string operator()(const PinnedRunFailure::AppNotRunning& failure) const {
        return failure.application + " isn't running. Open it and try again.";
    }

    std::string operator()(const PinnedRunFailure::StatusItemMissing& failure) const {
        return failure.application + " is running but its menu bar item couldn't be found.";
    }

    std::string operator()(const PinnedRunFailure::MenuDidNotOpen& failure) const {
        return failure.application + "'s menu didn't open. It may show a panel instead of a menu.";
    }

    std::string operator()(const PinnedRunFailure::ItemChanged& failure) const {
        const auto message = "This item changed: " + quoted(failure.step) + " is no longer in the menu.";
        return failure.available.empty() ? message
                                         : message + " Current choices: " + choices(failure.available) + ".";
    }

    std::string operator()(const PinnedRunFailure::Ambiguous& failure) const {
        return std::to_string(failure.count) + " items are called " + quoted(failure.step) +
               ", so Tavrin won't guess.";
    }

    std::string operator()(const PinnedRunFailure::Excluded& failure) const {
        return quoted(failure.title) + " can't run: " + lowercasedAscii(reason(failure.reason)) + ".";
    }

    std::string operator()(const PinnedRunFailure::PressFailed& failure) const {
        return quoted(failure.title) + " didn't respond to the press.";
    }

    std::string operator()(const PinnedRunFailure::TimedOut& failure) const {
        return failure.application + " isn't responding.";
    }

    std::string operator()(const PinnedRunFailure::AccessibilityDenied&) const {
        return "Tavrin needs Accessibility access to open other apps' menus.";
    }

    static std::string choices(const std::vector<std::string>& available) {
        constexpr std::size_t choicesMax = 6;
        std::string list;
        for (std::size_t i = 0; i < std::min(available.size(), choicesMax); ++i)
            list += (i == 0 ? "" : ", ") + available[i];
        return list;
    }
};

} // namespace

std::string PinnedRunFailure::message() const { return std::visit(Messages{}, kind); }

} // namespace tavrin
