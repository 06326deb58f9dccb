#include "applications/overflow_menu.h"

#include <ranges>
#include <utility>
#include <vector>

namespace mac_model {

const HostedBar* OverflowMenu::barAt(Point point) const {
    for (const auto& bar : arrangement_.hostedBars())
        if (bar.overflow && bar.overflow->contains(point)) return &bar;
    return nullptr;
}

bool OverflowMenu::openAt(Point point) {
    const auto* agent = arrangement_.agent();
    const auto* bar =
        screens_.isMenuBarShown() && agent && agent->application.responding ? barAt(point) : nullptr;
    if (bar) open(*bar);
    return bar != nullptr;
}

void OverflowMenu::open(const HostedBar& bar) {
    MenuRequest request;
    std::vector<StatusItemIdentifier> listed;
    for (const auto& place : bar.items | std::views::reverse) {
        const auto* item = place.why == HiddenReason::Overflow ? items_.find(place.identifier) : nullptr;
        if (!item) continue;
        MenuItemSpec entry;
        entry.title = displayName(*item, processes_);
        request.items.push_back(std::move(entry));
        listed.push_back(place.identifier);
    }
    request.area = *bar.overflow;
    request.owner = arrangement_.agent()->identifier;
    request.onChosen = [this, listed](const MenuPath& path) { act(listed[path.front()]); };
    menus_.open(std::move(request));
}

void OverflowMenu::act(StatusItemIdentifier item) {
    if (!items_.press(item, StatusItemPress::Left)) surfaces_.toggle(item);
}

} // namespace mac_model
