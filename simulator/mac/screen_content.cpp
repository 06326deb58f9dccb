#include "mac/screen_content.h"

#include <array>
#include <ranges>
#include <utility>

namespace mac_model {

ScreenContent::ScreenContent(Mac& mac)
    : menus(stack, mac.screens())
    , applicationMenus(mac, menus, chosen)
    , statusItems(mac, stack, menus, chosen)
    , presentation(mac, stack, menus)
    , settings_(mac, stack)
    , panels_(mac, stack) {
    if (const auto* primary = mac.screens().primary()) pointer.at = primary->frame.middle();
    mac.workspace().openUrl = [this](const std::string& url) { return settings_.open(url); };
    mac.program().hooks.showAboutPanel = [this] { panels_.showAbout(); };
    mac.program().hooks.hasVisibleWindows = [this] { return presentation.hasVisibleWindows(); };
    if (auto* updater = mac.updater()) updater->onCheck = [this] { panels_.showUpToDate(); };
    installActions(mac);
    mac.surfaceWindows = [this] { return windows(); };
    subscriptions_.push_back(menus.onChanged.subscribe([this, &mac] { noteOpenMenu(mac); }));
    subscriptions_.push_back(mac.processes().onEnded.subscribe(
        [this](tavrin::ProcessIdentifier ended) { stack.dismissAllOf(ended); }));
    const auto followFront = [this, &mac] {
        const auto* front = mac.processes().frontmost();
        stack.setActive(front ? front->identifier : 0);
    };
    followFront();
    subscriptions_.push_back(mac.processes().onFrontChanged.subscribe(followFront));
    subscriptions_.push_back(mac.keyboard().onBeep.subscribe([this, &mac] {
        SyntheticEvent beep;
        beep.time = mac.scheduler().now();
        beep.type = "beep";
        events.record(std::move(beep));
    }));
    subscriptions_.push_back(mac.statusArea().onChanged.subscribe([this] {
        presentation.followStatusItems();
        statusItems.closeOrphans();
    }));
}

void ScreenContent::installActions(Mac& mac) {
    auto& actions = mac.accessibility().actions;
    actions.actOnItem = [this, &mac](StatusItemIdentifier item, std::string_view) {
        if (!mac.statusArea().press(item, tavrin::StatusItemPress::Left)) statusItems.toggle(item);
    };
    actions.pressTitle = [this, &mac](tavrin::ProcessIdentifier process, std::size_t title) {
        const auto* owner = mac.processes().menuBarOwner();
        if (owner && owner->identifier == process) applicationMenus.toggle(title, {});
    };
    actions.pressEntry = [this](const ElementKey& entry) {
        const MenuPath path(entry.path.begin(), entry.path.end());
        if (entry.kind == ElementKey::Kind::TitleEntry)
            applicationMenus.choose(entry.process, entry.owner, path);
        else
            statusItems.choose(StatusItemIdentifier{entry.owner}, path);
    };
    actions.cancelMenu = [this, &mac](const ElementKey& key) {
        const bool ignores = mac.accessibility().menus().faultsOf(key.process).ignoresCancel;
        if (mac.openMenu && mac.openMenu->isOf(key) && !ignores) menus.close();
    };
}

void ScreenContent::noteOpenMenu(Mac& mac) const {
    const auto anchor = menus.anchor();
    const auto before = std::exchange(mac.openMenu, std::nullopt);
    if (!anchor) return;
    auto& open = mac.openMenu.emplace();
    open.owner = menus.owner();
    open.item = anchor->item;
    open.title = anchor->title;
    for (const auto entry : menus.openPath()) open.path.push_back(static_cast<std::uint32_t>(entry));
    bool isAsBefore =
        before && before->owner == open.owner && before->item == open.item && before->title == open.title;
    for (std::size_t depth = 0; depth <= open.path.size(); ++depth) {
        isAsBefore = isAsBefore && depth < before->openedAt.size() &&
                     (depth == 0 || before->path[depth - 1] == open.path[depth - 1]);
        open.openedAt.push_back(isAsBefore ? before->openedAt[depth] : mac.scheduler().now());
    }
}

std::vector<tavrin::OnScreenWindow> ScreenContent::windows() const {
    constexpr std::array layers{0, 8, 25, 101, 101, 500}; // of each SurfaceKind
    constexpr std::uint32_t firstNumber = 100'000;
    std::vector<tavrin::OnScreenWindow> windows;
    for (const auto& surface : stack.backToFront() | std::views::reverse)
        windows.push_back({firstNumber + static_cast<std::uint32_t>(surface->identifier), surface->owner,
                           layers[std::size_t(surface->kind)], surface->frame});
    return windows;
}

} // namespace mac_model
