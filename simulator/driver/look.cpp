#include "driver/look.h"

#include "driver/json_shapes.h"
#include "driver/surface_tree.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

namespace {

using nlohmann::json;

json shapeOf(const ScreenSpec& screen) {
    json shape{{"frame", frameShape(screen.frame)},
               {"scale", number(screen.scale)},
               {"menuBarHeight", number(screen.menuBarHeight)}};
    if (screen.leftMenuBarArea) shape["leftMenuBarArea"] = frameShape(*screen.leftMenuBarArea);
    if (screen.rightMenuBarArea) shape["rightMenuBarArea"] = frameShape(*screen.rightMenuBarArea);
    return shape;
}

json shapeOf(const Pointer& pointer) {
    json buttons = json::array();
    for (const auto button : pointer.buttons) buttons.push_back(mouseButtonNames[std::size_t(button)]);
    return {{"at", pointShape(pointer.at)}, {"visible", pointer.isVisible}, {"buttons", std::move(buttons)}};
}

std::string bundleOf(const ProcessTable& processes, ProcessIdentifier process) {
    const auto* owner = processes.find(process);
    return owner ? owner->application.bundleIdentifier : std::string{};
}

void putAppearance(json& shape, const StatusItemRecord& item) {
    const auto& symbol = item.origin == ItemOrigin::Program ? item.appearance.image.name : item.spec.symbol;
    if (!symbol.empty()) shape["symbol"] = symbol;
    if (item.appearance.alpha != 1) shape["alpha"] = number(item.appearance.alpha);
    if (item.appearance.isPillShown) shape["pill"] = true;
    if (item.appearance.glow != 0) shape["glow"] = number(item.appearance.glow);
}

json shapeOf(const StatusItemRecord& item, const ProcessTable& processes) {
    json shape{{"id", std::uint64_t(item.identifier)},
               {"owner", bundleOf(processes, item.owner)},
               {"name", displayName(item, processes)},
               {"identifier", item.spec.identifier},
               {"autosaveName", item.name},
               {"frame", frameShape(*item.frame)},
               {"drawn", item.isDrawn}};
    if (item.why) shape["why"] = nameOf(*item.why);
    if (!item.spec.title.empty()) shape["title"] = item.spec.title;
    if (!item.spec.help.empty()) shape["help"] = item.spec.help;
    if (!item.spokenValue.empty()) shape["value"] = item.spokenValue;
    if (!item.spec.enabled) shape["enabled"] = false;
    if (item.isOpen) shape["open"] = true;
    if (item.isCarried) shape["carried"] = true;
    putAppearance(shape, item);
    return shape;
}

json menuTitlesShape(const ScreenContent& content, const ScreenSpec& screen) {
    json titles = json::array();
    for (const auto& title : content.applicationMenus.titlesOn(screen))
        titles.push_back({{"title", title.title}, {"frame", frameShape(title.frame)}});
    return titles;
}

/// The menus of the primary screen stand at the top of the reply, those of the others with their screen.
void putMenuTitles(json& look, Mac& mac, const ScreenContent& content) {
    const auto& screens = mac.screens().screens();
    look["menus"] = screens.empty() ? json::array() : menuTitlesShape(content, screens.front());
    for (std::size_t i = 1; i < screens.size(); ++i)
        look["screens"][i]["menus"] = menuTitlesShape(content, screens[i]);
    const auto anchor = content.menus.anchor();
    if (anchor && anchor->title) look["openMenu"] = *anchor->title;
}

json drawnItems(const HostedBar& bar) {
    json items = json::array();
    for (const auto& place : bar.items)
        if (place.isDrawn)
            items.push_back({{"id", std::uint64_t(place.identifier)}, {"frame", frameShape(place.frame)}});
    return items;
}

/// What the agent draws on each screen: where the others show other items than the primary, and the button
/// for those that find no room.
void putHostedBars(json& look, Mac& mac) {
    const auto& bars = mac.arrangement().hostedBars();
    const bool isShown = mac.screens().isMenuBarShown();
    for (std::size_t i = 0; i < bars.size() && i < look["screens"].size(); ++i) {
        if (i > 0) look["screens"][i]["items"] = isShown ? drawnItems(bars[i]) : json::array();
        if (isShown && bars[i].overflow) look["screens"][i]["overflow"] = frameShape(*bars[i].overflow);
    }
}

json worldShape(Mac& mac) {
    json model = json::object();
    for (const auto& setting : uncertaintySettings)
        model[std::string(setting.name)] = setting.valueIn(mac.uncertainties());
    return {{"trusted", mac.permission().isTrusted()},
            {"visibilityService", visibilityServiceNames[std::size_t(mac.visibility().answer)]},
            {"visibilityDelay", mac.visibility().delay.count()},
            {"assertionOutlives", mac.visibility().outlives.count()},
            {"loginItem", loginItemAnswerNames[std::size_t(mac.loginItems().answer)]},
            {"reducedMotion", mac.reducesMotion()},
            {"activeDisplay", mac.screens().activeIndex()},
            {"menuBarHidden", mac.screens().unseen().isMenuBarHidden},
            {"screenLocked", mac.screens().unseen().isScreenLocked},
            {"displayAsleep", mac.screens().unseen().isDisplayAsleep},
            {"keyboardLayout", keyboardLayoutNames[std::size_t(mac.keyboard().layout)]},
            {"running", mac.program().isRunning()},
            {"model", std::move(model)}};
}

} // namespace

json lookAt(Mac& mac, const ScreenContent& content) {
    json look{{"screens", json::array()}, {"menuBar", json::array()}, {"surfaces", json::array()}};
    for (const auto& screen : mac.screens().screens()) look["screens"].push_back(shapeOf(screen));
    look["pointer"] = shapeOf(content.pointer);
    putMenuTitles(look, mac, content);
    putHostedBars(look, mac);
    for (const auto* item : mac.statusItems().fromLeftToRight())
        look["menuBar"].push_back(shapeOf(*item, mac.processes()));
    const auto* key = content.stack.key();
    for (const auto& surface : content.stack.backToFront()) {
        auto tree = treeOf(*surface, bundleOf(mac.processes(), surface->owner), surface.get() == key);
        if (content.stack.alertBefore(*surface)) tree["waits"] = true;
        look["surfaces"].push_back(std::move(tree));
    }
    const auto* front = mac.processes().frontmost();
    look["frontmost"] = front ? front->application.bundleIdentifier : "";
    look["world"] = worldShape(mac);
    return look;
}

} // namespace mac_model
