#include "discovery/hosted/hosted_entries.h"

#include "accessibility/window_reader.h"
#include "discovery/menu_bar_item_scan_policy.h"
#include "platform/accessibility_names.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavrin {

namespace {

using Entries = std::vector<HostedEntry>;

constexpr Seconds messagingTimeout{0.5};

std::optional<std::string> labelOf(const MenuBarElement& element, const Text& text) {
    for (const auto* source : {&element.title, &element.description}) {
        if (!*source) continue;
        if (auto trimmed = text.trimmed(**source); !trimmed.empty()) return trimmed;
    }
    return std::nullopt;
}

std::optional<MenuBarAgentSlot> slotOf(const WindowElement& found) {
    const auto& frame = found.element.reportedFrame;
    if (!frame || !MenuBarAgentSlotPolicy::isUsableRawFrame(frame->origin(), frame->size()))
        return std::nullopt;
    using Kind = MenuBarAgentSlot::Kind;
    const bool isProxy = found.element.role == ax::groupRole;
    return MenuBarAgentSlot{isProxy ? Kind::proxy : Kind::button, found.window, *frame};
}

HostedEntry entryOf(WindowElement found, const Text& text) {
    const auto& frame = found.element.reportedFrame;
    const bool isValid = frame && MenuBarItemScanPolicy::isValidFrame(*frame);
    return {.element = found.element.element,
            .processIdentifier = found.process,
            .canonicalIdentifier = {},
            .rawIdentifier = found.element.rawIdentifier,
            .label = labelOf(found.element, text),
            .frame = isValid ? frame : std::nullopt,
            .slot = slotOf(found)};
}

std::vector<MenuBarAgentSlot> slotsOf(const Entries& entries) {
    std::vector<MenuBarAgentSlot> slots;
    for (const auto& entry : entries)
        if (entry.slot) slots.push_back(*entry.slot);
    return slots;
}

} // namespace

bool isAt(const HostedEntry& entry, const Rect& frame) {
    constexpr double distanceMax = 3; // points
    return std::abs(entry.frame->midX() - frame.midX()) <= distanceMax &&
           std::abs(entry.frame->midY() - frame.midY()) <= distanceMax;
}

/// What the agent answers for itself is one of the system's extras if it says so in its identifier; a label
/// could be anybody's.
void HostedEntryReader::identify(HostedEntry& entry, std::string_view bundleIdentifier) const {
    const bool isAgents = bundleIdentifier == menuBarAgentBundle;
    const double width = entry.frame ? entry.frame->width : 0;
    entry.canonicalIdentifier = MenuBarItemScanPolicy::canonicalIdentifier(
        bundleIdentifier, entry.rawIdentifier, isAgents ? std::nullopt : entry.label, width, text_);
    if (isAgents && entry.canonicalIdentifier && !MenuBarItemScanPolicy::isApple(*entry.canonicalIdentifier))
        entry.canonicalIdentifier.reset();
}

std::optional<HostedBarReading> HostedEntryReader::read(ProcessIdentifier agent,
                                                        const Applications& applications,
                                                        const AbandonFlag& abandoned) const {
    auto found = WindowReader(accessibility_, messagingTimeout, abandoned).readItems(agent);
    if (!found) return std::nullopt;
    HostedBarReading reading{entriesOf(agent, applications, std::move(*found)), {}};
    const auto kept = MenuBarAgentSlotPolicy::representativeSlots(slotsOf(reading.entries)).slots;
    std::erase_if(reading.entries, [&](const HostedEntry& entry) {
        return !entry.slot || std::ranges::find(kept, *entry.slot) == kept.end();
    });
    reading.window = MenuBarAgentSlotPolicy::fullestWindow(kept);
    return reading;
}

std::vector<HostedEntry> HostedEntryReader::entriesOf(ProcessIdentifier agent,
                                                      const Applications& applications,
                                                      std::vector<WindowElement> elements) const {
    Entries entries;
    for (auto& element : elements) {
        auto entry = entryOf(std::move(element), text_);
        const auto owner = applications.find(entry.processIdentifier);
        if (entry.processIdentifier == agent)
            identify(entry, menuBarAgentBundle);
        else if (owner != applications.end())
            identify(entry, owner->second.bundleIdentifier);
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace tavrin
