#include "accessibility/menu_contents.h"

#include <utility>

namespace mac_model {

MenuContents::MenuContents(const VirtualScheduler& scheduler, const ProcessTable& processes,
                           const Faults& faults, MenuTracking& menus)
    : scheduler_(scheduler)
    , processes_(processes)
    , faults_(faults)
    , menus_(menus)
    , menuChanges_(menus.onChanged.subscribe([this] { noteOpenMenu(); })) {}

bool MenuContents::areListed(const ElementKey& menu) const {
    const auto fillsAfter = faultsOf(menu.process).fillsAfter;
    if (!fillsAfter) return true;
    const auto since = open_ ? open_->openSince(menu) : std::nullopt;
    return since && scheduler_.now() >= *since + *fillsAfter;
}

AttributeResult MenuContents::shownMenu(const ElementKey& itemOrTitle, const ElementKey& itsMenu) const {
    using Error = AccessibilityError;
    if (faultsOf(itemOrTitle.process).hidesShownMenu) return std::unexpected(Error::AttributeUnsupported);
    if (!isShownAt(itemOrTitle)) return std::unexpected(Error::NoValue);
    return elementFor(itsMenu);
}

void MenuContents::noteOpenMenu() {
    const auto anchor = menus_.anchor();
    const auto before = std::exchange(open_, std::nullopt);
    if (!anchor) return;
    auto& open = open_.emplace();
    open.owner = menus_.owner();
    open.item = anchor->item;
    open.title = anchor->title;
    for (const auto entry : menus_.openPath()) open.path.push_back(static_cast<std::uint32_t>(entry));
    bool isAsBefore =
        before && before->owner == open.owner && before->item == open.item && before->title == open.title;
    for (std::size_t depth = 0; depth <= open.path.size(); ++depth) {
        isAsBefore = isAsBefore && depth < before->openedAt.size() &&
                     (depth == 0 || before->path[depth - 1] == open.path[depth - 1]);
        open.openedAt.push_back(isAsBefore ? before->openedAt[depth] : scheduler_.now());
    }
}

} // namespace mac_model
