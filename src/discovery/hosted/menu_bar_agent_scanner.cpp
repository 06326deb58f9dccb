#include "discovery/hosted/menu_bar_agent_scanner.h"

#include "discovery/item_snapshots.h"
#include "discovery/menu_bar_item_scan_policy.h"
#include "platform/text.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace tavrin {

namespace {

using Entries = std::vector<HostedEntry>;

constexpr std::string_view clockIdentifier = "com.apple.menuextra.clock";

Entries inWindow(const Entries& entries, std::optional<int> window) {
    Entries found;
    for (const auto& entry : entries)
        if (entry.slot && entry.slot->windowIndex == window) found.push_back(entry);
    return found;
}

const HostedEntry* leftmost(const std::vector<const HostedEntry*>& entries) {
    const auto found = std::ranges::min_element(entries, {}, [](const auto* e) { return e->frame->minX(); });
    return found == entries.end() ? nullptr : *found;
}

std::optional<ProcessIdentifier> controlCenterAmong(const MenuBarAgentScanner::Applications& applications) {
    for (const auto& [process, application] : applications)
        if (application.bundleIdentifier == MenuBarAgentScanner::controlCenterBundle) return process;
    return std::nullopt;
}

std::vector<Rect> clockFramesIn(const Entries& entries) {
    std::vector<Rect> frames;
    for (const auto& entry : entries)
        if (entry.frame && entry.canonicalIdentifier == clockIdentifier) frames.push_back(*entry.frame);
    return frames;
}

/// Takes the program's own out; answers how many of them are drawn.
int takeOwn(Entries& entries, ProcessIdentifier own) {
    const auto isOwn = [own](const HostedEntry& entry) { return entry.processIdentifier == own; };
    const auto isDrawn = [&](const HostedEntry& entry) { return isOwn(entry) && entry.frame; };
    const auto drawn = std::ranges::count_if(entries, isDrawn);
    std::erase_if(entries, isOwn);
    return static_cast<int>(drawn);
}

/// Those at the item's last place, if there are any.
std::vector<const HostedEntry*> preferringPlace(const std::vector<const HostedEntry*>& entries,
                                                const Rect& frame) {
    std::vector<const HostedEntry*> there;
    std::ranges::copy_if(entries, std::back_inserter(there),
                         [&](const auto* entry) { return isAt(*entry, frame); });
    return there.empty() ? entries : there;
}

} // namespace

std::optional<MenuBarAgentScanResult> MenuBarAgentScanner::scan(ProcessIdentifier agent,
                                                                ProcessIdentifier own,
                                                                const Applications& applications,
                                                                const AbandonFlag& abandoned) const {
    const auto reading = reader_.read(agent, applications, abandoned);
    if (!reading) return std::nullopt;
    MenuBarAgentScanResult result;
    result.clockFrames = clockFramesIn(reading->entries);
    result.entries = inWindow(reading->entries, reading->window);
    result.ownItemCount = takeOwn(result.entries, own);
    result.items = controlCentersItems(result.entries, agent, applications);
    for (const auto& [process, application] : applications)
        if (process != own && process != agent && application.bundleIdentifier != controlCenterBundle)
            std::ranges::move(itemsOf(application, result.entries), std::back_inserter(result.items));
    sort(result.items);
    return result;
}

/// One item for each identifier, however often and whoever's element has it.
MenuBarAgentScanner::Items MenuBarAgentScanner::controlCentersItems(const Entries& entries,
                                                                    ProcessIdentifier agent,
                                                                    const Applications& applications) const {
    const auto process = controlCenterAmong(applications).value_or(agent);
    const RunningApplicationSnapshot system{.bundleIdentifier = std::string(controlCenterBundle),
                                            .processIdentifier = process,
                                            .localizedName = "macOS"};
    std::vector<ItemFacts> facts;
    std::set<std::string> known;
    for (const auto& entry : entries) {
        const bool isTheirs = entry.processIdentifier == agent || entry.processIdentifier == process;
        if (!isTheirs || !entry.frame || !entry.canonicalIdentifier) continue;
        const auto canonical = text_.lowercased(*entry.canonicalIdentifier);
        if (known.insert(canonical).second) facts.push_back({canonical, entry.label, *entry.frame});
    }
    return snapshotsOf(system, facts, text_);
}

MenuBarAgentScanner::Items MenuBarAgentScanner::itemsOf(const RunningApplicationSnapshot& application,
                                                        const Entries& entries) const {
    const bool needsIdentity = MenuBarItemScanPolicy::isApple(application.bundleIdentifier);
    std::vector<ItemFacts> facts;
    for (const auto& entry : entries) {
        if (entry.processIdentifier != application.processIdentifier || !entry.frame) continue;
        if (needsIdentity && !entry.canonicalIdentifier) continue;
        facts.push_back({entry.canonicalIdentifier, entry.label, *entry.frame});
    }
    return snapshotsOf(application, facts, text_);
}

void MenuBarAgentScanner::sort(Items& items) const {
    std::ranges::stable_sort(items, [this](const auto& left, const auto& right) {
        const bool isLeftLast = left.bundleIdentifier == controlCenterBundle;
        const bool isRightLast = right.bundleIdentifier == controlCenterBundle;
        if (isLeftLast != isRightLast) return isRightLast;
        return text_.compareIgnoringCase(left.name, right.name) < 0;
    });
}

std::optional<MenuBarAgentScanner::HostedElement>
MenuBarAgentScanner::resolveElement(const MenuBarItemSnapshot& item, ProcessIdentifier agent) const {
    const RunningApplicationSnapshot owner{.bundleIdentifier = item.bundleIdentifier,
                                           .processIdentifier = item.processIdentifier,
                                           .localizedName = item.applicationName,
                                           .isRegular = item.isOwnerRegular};
    const auto reading = reader_.read(agent, {{item.processIdentifier, owner}}, {});
    if (!reading) return std::nullopt;
    std::vector<const HostedEntry*> same;
    std::vector<const HostedEntry*> nameless;
    for (const auto& entry : reading->entries) {
        const auto process = entry.processIdentifier;
        if (!entry.frame || (process != item.processIdentifier && process != agent)) continue;
        if (!entry.canonicalIdentifier) nameless.push_back(&entry);
        if (entry.canonicalIdentifier && item.accessibilityIdentifier &&
            text_.lowercased(*entry.canonicalIdentifier) == text_.lowercased(*item.accessibilityIdentifier))
            same.push_back(&entry);
    }
    // Elements without a name are told by their place alone.
    if (same.empty())
        std::ranges::copy_if(nameless, std::back_inserter(same),
                             [&](const auto* entry) { return isAt(*entry, item.frame); });
    const auto* found = leftmost(preferringPlace(same, item.frame));
    if (!found) return std::nullopt;
    return HostedElement{found->element, *found->frame};
}

} // namespace tavrin
