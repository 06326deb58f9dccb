#pragma once

#include "pins/store/pinned_action.h"
#include "platform/text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tavrin {

/// An element of a menu as it was read, with what is below it.
struct PinnedMenuNode {
    std::string role;
    std::optional<std::string> subrole;
    std::optional<std::string> title; // as displayed
    std::optional<std::string> identifier;
    bool isEnabled = false;
    std::vector<std::string> actions;
    std::optional<std::string> shortcut; // such as "⇧⌘N"
    bool isChecked = false;
    std::vector<PinnedMenuNode> children; // in the order of Accessibility
    std::size_t elementIndex = 0;         // among the elements of the reader

    using Items = std::vector<const PinnedMenuNode*>;

    /// The entries as a person sees them: the children, and in place of a child that is a menu the entries of
    /// that menu.
    Items items() const;

    /// The items with a title, which separators lack.
    Items labelledItems() const;

    /// Whether a stored step may mean it: by its identifier or its title.
    bool couldBe(const PinnedMenuStep& step, const Text& text) const;

    /// The number of nodes among which a stored step can't choose.
    struct Many {
        std::size_t count = 0;
    };

    struct None {};

    using StepMatch = std::variant<const PinnedMenuNode*, Many, None>;

    /// The one node with the step's identifier, else the one with its title; never one of several.
    static StepMatch match(const PinnedMenuStep& step, const Items& in, const Text& text);
};

} // namespace tavrin
