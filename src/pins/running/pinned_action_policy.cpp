#include "pins/running/pinned_action_policy.h"

#include "base/unicode.h"
#include "pins/store/menu_title.h"
#include "platform/accessibility_names.h"

#include <algorithm>
#include <array>
#include <string>

namespace tavrin::PinnedActionPolicy {

namespace {

constexpr std::array excludedRoles{ax::checkBoxRole, ax::switchRole,      ax::toggleRole,
                                   ax::sliderRole,   ax::radioButtonRole, ax::incrementorRole};

// Each stands between single spaces, as `wordsOf` gives the words of a title.
constexpr std::array<std::string_view, 21> disruptiveWords{
    " quit ",      " exit ",      " sign out ", " log out ", " logout ", " disconnect ", " turn off ",
    " restart ",   " shut down ", " delete ",   " remove ",  " erase ",  " reset ",      " clear ",
    " uninstall ", " eject ",     " pause ",    " stop ",    " send ",   " share ",      " publish "};

bool isExcluded(std::string_view role) {
    return std::ranges::find(excludedRoles, role) != excludedRoles.end();
}

struct Range {
    char32_t first;
    char32_t last;
};

/// Marks that stand on characters of any script: combining ones, those around symbols and keycaps, variation
/// selectors. macOS counts them among the alphanumerics, but an emoji with one begins no word.
constexpr std::array<Range, 7> commonMarks{{{0x0300, 0x036F},
                                            {0x1AB0, 0x1AFF},
                                            {0x1DC0, 0x1DFF},
                                            {0x20D0, 0x20FF},
                                            {0xFE00, 0xFE0F},
                                            {0xFE20, 0xFE2F},
                                            {0xE0100, 0xE01EF}}};

bool isLetterOrDigit(const Utf8Character& character, const Text& text) {
    const bool isMark = std::ranges::any_of(commonMarks, [&](const Range& marks) {
        return character.value >= marks.first && character.value <= marks.last;
    });
    return !isMark && !text.keepingAlphanumerics(character.bytes).empty();
}

/// The letters and digits of a title with single spaces between and around its words.
std::string wordsOf(std::string_view title, const Text& text) {
    std::string words = " ";
    for (const auto& character : charactersOf(title)) {
        if (isLetterOrDigit(character, text))
            words += character.bytes;
        else if (!words.ends_with(' '))
            words += ' ';
    }
    if (!words.ends_with(' ')) words += ' ';
    return words;
}

} // namespace

std::string_view reason(NodeExclusion exclusion) {
    switch (exclusion) {
    case NodeExclusion::Toggle:
        return "Switches, checkboxes and sliders can't be pinned";
    case NodeExclusion::Disabled:
        return "Disabled right now";
    case NodeExclusion::NotPressable:
        return "Can't be pressed";
    }
    return {};
}

std::optional<NodeExclusion> exclusion(const PinnedMenuNode& node) {
    if (isExcluded(node.role) || isExcluded(node.subrole.value_or("")) || node.isChecked)
        return NodeExclusion::Toggle;
    if (!node.isEnabled) return NodeExclusion::Disabled;
    const bool isPressable = std::ranges::find(node.actions, ax::pressAction) != node.actions.end();
    return isPressable ? std::nullopt : std::optional(NodeExclusion::NotPressable);
}

std::optional<NodeExclusion> exclusionForTrail(std::span<const PinnedMenuNode> trail) {
    if (trail.empty()) return NodeExclusion::NotPressable;
    const auto ancestors = trail.first(trail.size() - 1);
    if (std::ranges::any_of(ancestors, [](const auto& node) { return isExcluded(node.role); }))
        return NodeExclusion::Toggle;
    return exclusion(trail.back());
}

bool looksDisruptive(const std::vector<PinnedMenuStep>& path, const Text& text) {
    return std::ranges::any_of(path, [&](const PinnedMenuStep& step) {
        const auto title = MenuTitle::normalized(step.title, text);
        if (!title) return false;
        const auto words = wordsOf(*title, text);
        return std::ranges::any_of(
            disruptiveWords, [&](std::string_view word) { return words.find(word) != std::string::npos; });
    });
}

} // namespace tavrin::PinnedActionPolicy
