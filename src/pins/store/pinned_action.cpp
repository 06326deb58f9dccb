#include "pins/store/pinned_action.h"

#include "pins/store/menu_title.h"

#include <algorithm>

namespace tavrin {

namespace {

bool isSamePath(const std::vector<PinnedMenuStep>& left, const std::vector<PinnedMenuStep>& right,
                const Text& text) {
    return std::ranges::equal(left, right, [&text](const PinnedMenuStep& a, const PinnedMenuStep& b) {
        return MenuTitle::normalized(a.title, text) == MenuTitle::normalized(b.title, text);
    });
}

} // namespace

std::string PinnedAction::pathDescription() const {
    std::string description;
    for (const auto& step : path) {
        if (&step != &path.front()) description += " > ";
        description += step.title;
    }
    return description;
}

bool PinnedAction::hasSameTarget(const PinnedAction& other, const Text& text) const {
    return bundleIdentifier == other.bundleIdentifier && origin() == other.origin() &&
           statusItem == other.statusItem && isSamePath(path, other.path, text);
}

} // namespace tavrin
