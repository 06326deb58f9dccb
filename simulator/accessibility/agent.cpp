#include "accessibility/agent.h"

#include <algorithm>
#include <ranges>

namespace mac_model {

using Kind = ElementKey::Kind;

namespace {

constexpr std::uint64_t groupOfAll = 0; // otherwise groups have the owner's number

std::uint32_t windowOf(const ElementKey& key) {
    return key.kind == Kind::AgentWindow ? static_cast<std::uint32_t>(key.owner) : key.path.front();
}

ElementKey inWindow(ElementKey key, Kind kind, std::uint64_t owner, std::uint32_t window) {
    key = childOf(key, kind, owner);
    key.path = {window};
    return key;
}

} // namespace

bool AgentBranch::isAgent(ProcessIdentifier process) const {
    const auto* agent = arrangement_.agent();
    return agent && agent->identifier == process;
}

const HostedBar* AgentBranch::barOf(const ElementKey& key) const {
    const auto& bars = arrangement_.hostedBars();
    return windowOf(key) < bars.size() ? &bars[windowOf(key)] : nullptr;
}

const ScreenSpec& AgentBranch::screenOf(const ElementKey& key) const {
    return screens_.screens()[std::min<std::size_t>(windowOf(key), screens_.screens().size() - 1)];
}

bool AgentBranch::isSystems(const StatusItemRecord& record) const {
    const auto* owner = processes_.find(record.owner);
    return owner && owner->application.bundleIdentifier == "com.apple.controlcenter";
}

bool AgentBranch::isListed(const PlacedItem& place) const {
    const auto* record = items_.find(place.identifier);
    if (!record || !record->isVisible || !record->spec.accessible) return false;
    const bool keepsOthers = uncertainties_.overflowFrame != OverflowFrame::Stale;
    return place.isDrawn || (place.why == HiddenReason::Overflow && keepsOthers);
}

ElementKey AgentBranch::keyOf(const PlacedItem& place, std::uint32_t window) const {
    ElementKey key;
    const bool isOwners = uncertainties_.agentOwners == AgentOwners::Owner;
    key.process = isOwners ? items_.find(place.identifier)->owner : arrangement_.agent()->identifier;
    return inWindow(key, Kind::HostedItem, static_cast<std::uint64_t>(place.identifier), window);
}

bool AgentBranch::exists(const ElementKey& key) const {
    const auto* bar = arrangement_.agent() && !screens_.screens().empty() ? barOf(key) : nullptr;
    if (!bar) return false;
    if (key.kind == Kind::HostedItem) {
        const auto* place = bar->find(StatusItemIdentifier{key.owner});
        return place && isListed(*place) && keyOf(*place, windowOf(key)).process == key.process;
    }
    if (!isAgent(key.process)) return false;
    if (key.kind == Kind::OverflowButton) return bar->overflow.has_value();
    return key.kind == Kind::AgentWindow || !itemsIn(key).empty();
}

std::string AgentBranch::role(const ElementKey& key) const {
    if (key.kind == Kind::AgentWindow) return "AXWindow";
    if (key.kind == Kind::AgentGroup || key.kind == Kind::AgentProxy) return "AXGroup";
    const bool isPlain = key.kind == Kind::HostedItem && uncertainties_.agentTree == AgentTree::Flat;
    return isPlain && !isSystems(item(key)) ? "AXMenuBarItem" : "AXButton";
}

Branch::Keys AgentBranch::windowsOf(ProcessIdentifier process) const {
    Keys windows;
    ElementKey application;
    application.process = process;
    if (isAgent(process))
        for (std::uint64_t i = 0; i < arrangement_.hostedBars().size(); ++i)
            windows.push_back(childOf(application, Kind::AgentWindow, i));
    return windows;
}

/// From left to right.
Branch::Keys AgentBranch::itemsIn(const ElementKey& windowOrGroup) const {
    Keys found;
    const bool isOfOwner = windowOrGroup.kind == Kind::AgentGroup && windowOrGroup.owner != groupOfAll;
    for (const auto& place : barOf(windowOrGroup)->items | std::views::reverse) {
        if (!isListed(place)) continue;
        const auto owner = static_cast<std::uint64_t>(items_.find(place.identifier)->owner);
        if (!isOfOwner || owner == windowOrGroup.owner)
            found.push_back(keyOf(place, windowOf(windowOrGroup)));
    }
    return found;
}

Branch::Keys AgentBranch::groupsIn(const ElementKey& window) const {
    Keys groups;
    for (const auto& key : itemsIn(window)) {
        const auto owner = static_cast<std::uint64_t>(item(key).owner);
        auto group = inWindow(window, Kind::AgentGroup, owner, windowOf(window));
        if (std::ranges::find(groups, group) == groups.end()) groups.push_back(std::move(group));
    }
    return groups;
}

std::optional<ElementKey> AgentBranch::parent(const ElementKey& key) const {
    ElementKey agent;
    agent.process = arrangement_.agent()->identifier;
    const auto window = childOf(agent, Kind::AgentWindow, windowOf(key));
    if (key.kind == Kind::AgentWindow) return agent;
    const bool isBelowWindow = key.kind == Kind::AgentGroup || key.kind == Kind::OverflowButton;
    if (isBelowWindow || uncertainties_.agentTree == AgentTree::Flat) return window;
    const bool isByOwner = uncertainties_.agentTree == AgentTree::Grouped;
    const auto group = isByOwner ? static_cast<std::uint64_t>(item(key).owner) : groupOfAll;
    return inWindow(agent, Kind::AgentGroup, group, windowOf(key));
}

std::optional<Branch::Keys> AgentBranch::children(const ElementKey& key) const {
    if (key.kind != Kind::AgentWindow && key.kind != Kind::AgentGroup) return Keys{};
    Keys found;
    const auto window = windowOf(key);
    const auto tree = uncertainties_.agentTree;
    if (key.kind == Kind::AgentGroup && tree == AgentTree::Proxied)
        found.push_back(inWindow(key, Kind::AgentProxy, groupOfAll, window));
    if (key.kind == Kind::AgentWindow && barOf(key)->overflow)
        found.push_back(inWindow(key, Kind::OverflowButton, 0, window));
    if (key.kind == Kind::AgentWindow && tree == AgentTree::Proxied && !itemsIn(key).empty()) {
        found.push_back(inWindow(key, Kind::AgentGroup, groupOfAll, window));
        return found;
    }
    const bool hasGroups = key.kind == Kind::AgentWindow && tree == AgentTree::Grouped;
    std::ranges::move(hasGroups ? groupsIn(key) : itemsIn(key), std::back_inserter(found));
    return found;
}

std::optional<Rect> AgentBranch::frame(const ElementKey& key) const {
    const auto& screen = screenOf(key);
    const double lift = screens_.menuBarLift(screen);
    if (key.kind == Kind::AgentWindow)
        return Rect{screen.frame.x, screen.frame.y - lift, screen.frame.width, screen.menuBarHeight};
    if (key.kind == Kind::HostedItem) return itemFrame(key);
    if (key.kind != Kind::OverflowButton) return frameAround(itemsIn(key));
    auto button = *barOf(key)->overflow;
    button.y -= lift;
    return button;
}

std::optional<Rect> AgentBranch::itemFrame(const ElementKey& key) const {
    const auto& place = *barOf(key)->find(StatusItemIdentifier{key.owner});
    if (!place.isDrawn) return arrangement_.accessibilityFrame(item(key));
    auto frame = place.frame;
    frame.y -= screens_.menuBarLift(screenOf(key));
    return frame;
}

Rect AgentBranch::frameAround(const Keys& keys) const {
    std::optional<Rect> whole;
    for (const auto& key : keys) {
        const auto frame = itemFrame(key).value_or(Rect{});
        if (frame.width <= 0) continue;
        const double left = whole ? std::min(whole->x, frame.x) : frame.x;
        const double right = whole ? std::max(whole->maxX(), frame.maxX()) : frame.maxX();
        whole = Rect{left, frame.y, right - left, frame.height};
    }
    return whole.value_or(Rect{});
}

AttributeResult AgentBranch::attribute(const ElementKey& key, std::string_view name) const {
    if (key.kind == Kind::HostedItem) return ofItem(item(key), name);
    return unsupported();
}

AttributeResult AgentBranch::ofItem(const StatusItemRecord& record, std::string_view name) const {
    const bool knowsIdentifier = isSystems(record) || uncertainties_.agentOwners == AgentOwners::Owner;
    const auto labels = uncertainties_.agentLabels;
    const auto& label = record.spec.description.empty() ? record.spec.title : record.spec.description;
    if (name == "AXIdentifier" && knowsIdentifier && !record.spec.identifier.empty())
        return record.spec.identifier;
    if (name == "AXTitle" && labels == AgentLabels::Title) return textOrNone(label);
    if (name == "AXDescription" && labels == AgentLabels::Description) return textOrNone(label);
    return unsupported();
}

/// The system's extras offer nothing here, only in their owner's tree.
std::vector<std::string> AgentBranch::actionNames(const ElementKey& key) const {
    if (key.kind != Kind::HostedItem || isSystems(item(key))) return {};
    return item(key).spec.actions;
}

} // namespace mac_model
