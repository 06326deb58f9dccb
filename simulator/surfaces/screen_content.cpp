#include "surfaces/screen_content.h"

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
    actions.cancelMenu = [this](const ElementKey&) { menus.close(); };
}

} // namespace mac_model
