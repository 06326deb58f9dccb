#include "pins/menus/pinned_menu_node.h"

#include "pins/store/menu_title.h"
#include "platform/accessibility_names.h"

#include <algorithm>
#include <iterator>

namespace tavrin {

namespace {

void addItems(const PinnedMenuNode& node, PinnedMenuNode::Items& items) {
    for (const auto& child : node.children) {
        if (child.role == ax::menuRole)
            addItems(child, items);
        else
            items.push_back(&child);
    }
}

template <class Condition>
PinnedMenuNode::Items filtered(const PinnedMenuNode::Items& items, const Condition& condition) {
    PinnedMenuNode::Items matching;
    std::ranges::copy_if(items, std::back_inserter(matching), condition);
    return matching;
}

} // namespace

PinnedMenuNode::Items PinnedMenuNode::items() const {
    Items items;
    addItems(*this, items);
    return items;
}

PinnedMenuNode::Items PinnedMenuNode::labelledItems() const {
    return filtered(
        items(), [](const PinnedMenuNode* item) { return item->title && !MenuTitle::isBlank(*item->title); });
}

bool PinnedMenuNode::couldBe(const PinnedMenuStep& step, const Text& text) const {
    if (step.identifier && identifier == step.identifier) return true;
    const auto wanted = MenuTitle::normalized(step.title, text);
    return wanted && MenuTitle::normalized(title, text) == wanted;
}

PinnedMenuNode::StepMatch PinnedMenuNode::match(const PinnedMenuStep& step, const Items& in,
                                                const Text& text) {
    if (step.identifier) {
        const auto same =
            filtered(in, [&](const PinnedMenuNode* item) { return item->identifier == step.identifier; });
        if (same.size() == 1) return same.front();
    }
    const auto wanted = MenuTitle::normalized(step.title, text);
    if (!wanted) return None{};
    const auto same = filtered(
        in, [&](const PinnedMenuNode* item) { return MenuTitle::normalized(item->title, text) == wanted; });
    if (same.empty()) return None{};
    if (same.size() > 1) return Many{same.size()};
    return same.front();
}

} // namespace tavrin
