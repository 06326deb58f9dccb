#include "discovery/hosted/native_scan.h"

#include "discovery/hosted/hosted_match.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <set>

namespace tavrin {

namespace {

using Applications = std::span<const RunningApplicationSnapshot>;

constexpr ProcessIdentifier noProcess = -1;
constexpr double everythingIsShown = -std::numeric_limits<double>::infinity(); // as a boundary

ProcessIdentifier agentAmong(Applications applications) {
    const auto found =
        std::ranges::find(applications, menuBarAgentBundle, &RunningApplicationSnapshot::bundleIdentifier);
    return found == applications.end() ? noProcess : found->processIdentifier;
}

/// All but the agent, which has no items of its own, and where it has told of them Control Center.
std::vector<RunningApplicationSnapshot> toAskBeside(Applications applications, bool hasAgentTold) {
    std::vector<RunningApplicationSnapshot> others;
    std::ranges::copy_if(applications, std::back_inserter(others), [=](const auto& application) {
        const auto& bundle = application.bundleIdentifier;
        const bool isTold = hasAgentTold && bundle == MenuBarAgentScanner::controlCenterBundle;
        return bundle != menuBarAgentBundle && !isTold;
    });
    return others;
}

/// A menu bar without anything in it, not even a clock, isn't believable.
bool tellsNothing(const MenuBarAgentScanResult& result) {
    return result.entries.empty() && result.ownItemCount == 0;
}

/// The agent's word counts alone for applications that list nothing themselves.
void addOthers(std::vector<MenuBarItemSnapshot>& items, const std::vector<MenuBarItemSnapshot>& hosted,
               const std::set<ProcessIdentifier>& listing) {
    std::ranges::copy_if(hosted, std::back_inserter(items),
                         [&](const auto& item) { return !listing.contains(item.processIdentifier); });
}

} // namespace

std::optional<MenuBarAgentScanResult> NativeScan::readAgent(ProcessIdentifier agent,
                                                            Applications applications,
                                                            const AbandonFlag& abandoned) const {
    if (agent == noProcess) return std::nullopt;
    MenuBarAgentScanner::Applications byProcess;
    for (const auto& application : applications)
        byProcess.emplace(application.processIdentifier, application);
    auto result = agent_.scan(agent, own_, byProcess, abandoned);
    if (result && tellsNothing(*result)) result.reset();
    return result;
}

std::expected<ScanResult, ReadFailure> NativeScan::scan(Applications applications, const HidingBoundary&,
                                                        const AbandonFlag& abandoned) const {
    const auto agent = agentAmong(applications);
    const auto hosted = readAgent(agent, applications, abandoned);
    const auto others = toAskBeside(applications, hosted.has_value());
    auto result = applications_.scan(others, everythingIsShown, abandoned);
    if (!result || !hosted) return result;
    std::set<ProcessIdentifier> listing;
    for (const auto& item : result->items) listing.insert(item.processIdentifier);
    result->items = drawnByAgent(std::move(result->items), hosted->entries, agent);
    addOthers(result->items, hosted->items, listing);
    agent_.sort(result->items);
    result->clockFrames = hosted->clockFrames;
    result->ownItemCount = hosted->ownItemCount;
    return result;
}

} // namespace tavrin
