#include "native/policy/native_expanded_rescue_latch.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace tavrin {

namespace {

constexpr double unmeasuredWidth = 28;
constexpr double usualSpacing = 8;
constexpr double spareRoom = 8;
constexpr double moreRoomToTryAgain = 14;
constexpr std::string_view systemItemStart = "com.apple.controlcenter::";

double widthOf(const std::set<std::string>& items, const std::map<std::string, double>& widths) {
    double width = 0;
    for (const auto& item : items) {
        const auto measured = widths.find(item);
        width += measured == widths.end() ? unmeasuredWidth : measured->second;
    }
    return items.empty() ? unmeasuredWidth : width;
}

std::set<std::string> itemsOf(const std::string& unit, const NativeExpandedRescueLatch::Measures& measures) {
    const auto items = measures.itemsOfUnits.find(unit);
    return items == measures.itemsOfUnits.end() ? std::set<std::string>() : items->second;
}

} // namespace

void NativeExpandedRescueLatch::latch(const std::set<std::string>& trapped, ReplacesExisting replaces,
                                      const std::optional<LaneLayout>& lane, Seconds now) {
    if (!judgePendingRelease(trapped, now)) return unconfirmedIdentifiers.clear();
    unconfirmedIdentifiers.clear();
    std::ranges::set_difference(trapped, identifiers,
                                std::inserter(unconfirmedIdentifiers, unconfirmedIdentifiers.end()));
    if (replaces == ReplacesExisting::Yes) identifiers = trapped;
    identifiers.insert(unconfirmedIdentifiers.begin(), unconfirmedIdentifiers.end());
    if (unconfirmedIdentifiers.empty() && lane) moveFrontier(*lane);
}

/// False when nothing may be latched because of it: it is too early to tell, or the unit didn't fit.
bool NativeExpandedRescueLatch::judgePendingRelease(const std::set<std::string>& trapped, Seconds now) {
    if (!pendingRelease) return true;
    if (now - pendingRelease->time < releaseTime) return false;
    const auto judged = *std::exchange(pendingRelease, std::nullopt);
    if (!trapped.contains(judged.unit)) return true;
    failedReleaseRooms[judged.unit] = judged.room;
    frontier.reset();
    return false;
}

void NativeExpandedRescueLatch::moveFrontier(const LaneLayout& lane) {
    const bool isElsewhere = !frontier || frontier->screenFrame != lane.screenFrame;
    if (isElsewhere || lane.leadingEdge < frontier->leadingEdge) frontier = lane;
}

void NativeExpandedRescueLatch::retain(const std::set<std::string>& running) {
    const auto hasEnded = [&](const std::string& unit) {
        return !unit.starts_with(systemItemStart) && !running.contains(unit);
    };
    std::erase_if(identifiers, hasEnded);
    std::erase_if(unconfirmedIdentifiers, hasEnded);
    if (pendingRelease && hasEnded(pendingRelease->unit)) pendingRelease.reset();
}

bool NativeExpandedRescueLatch::releaseFitting(const LaneLayout& lane, const Measures& measures,
                                               std::span<const std::string> order, Seconds now) {
    if (pendingRelease || !unconfirmedIdentifiers.empty() || identifiers.empty()) return false;
    if (!frontier || frontier->screenFrame != lane.screenFrame) return false;
    const double room = lane.leadingEdge - frontier->leadingEdge;
    if (room <= 0) return false;
    const auto unit = std::ranges::find_if(order, [&](const std::string& one) {
        return identifiers.contains(one) && fits(one, lane, room, measures);
    });
    if (unit == order.end()) return false;
    identifiers.erase(*unit);
    pendingRelease = {*unit, itemsOf(*unit, measures), room, now};
    return true;
}

bool NativeExpandedRescueLatch::fits(const std::string& unit, const LaneLayout& lane, double room,
                                     const Measures& measures) const {
    const auto failed = failedReleaseRooms.find(unit);
    if (failed != failedReleaseRooms.end() && room < failed->second + moreRoomToTryAgain) return false;
    const double spacing = lane.itemSpacing > 0 ? lane.itemSpacing : usualSpacing;
    return widthOf(itemsOf(unit, measures), measures.itemWidths) + spacing + spareRoom <= room;
}

} // namespace tavrin
