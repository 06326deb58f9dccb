#include "discovery/hosted/menu_bar_agent_slot_policy.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace tavrin::MenuBarAgentSlotPolicy {

namespace {

using Slot = MenuBarAgentSlot;
using Slots = std::span<const Slot>;

constexpr double tolerance = 1; // points

bool hasSize(const Slot& slot) { return slot.frame.width > 0 && slot.frame.height > 0; }

/// Null when the window has no button with a size.
const Slot* leftmostButton(Slots slots, int window) {
    const Slot* leftmost = nullptr;
    for (const auto& slot : slots) {
        if (slot.windowIndex != window || slot.kind != Slot::Kind::button || !hasSize(slot)) continue;
        if (!leftmost || slot.frame.minX() < leftmost->frame.minX()) leftmost = &slot;
    }
    return leftmost;
}

bool isAligned(const Slot& proxy, const Slot& leftmost) {
    const double difference = std::abs(proxy.frame.midY() - leftmost.frame.midY());
    return difference <= std::max(leftmost.frame.height, tolerance);
}

bool isKept(const Slot& slot, Slots slots) {
    if (slot.kind == Slot::Kind::button) return true;
    if (!hasSize(slot)) return false;
    const auto* leftmost = leftmostButton(slots, slot.windowIndex);
    return leftmost && isAligned(slot, *leftmost) && slot.frame.maxX() <= leftmost->frame.minX() + tolerance;
}

} // namespace

Representatives representativeSlots(Slots slots) {
    Representatives result;
    std::ranges::copy_if(slots, std::back_inserter(result.slots),
                         [&](const Slot& slot) { return isKept(slot, slots); });
    std::ranges::stable_sort(
        result.slots, {}, [](const Slot& slot) { return std::tuple(slot.windowIndex, slot.frame.minX()); });
    const auto window = fullestWindow(result.slots);
    for (const auto& slot : result.slots) {
        if (slot.windowIndex != window) continue;
        ++result.iconCount;
        if (!result.leading && hasSize(slot)) result.leading = slot;
    }
    return result;
}

std::optional<int> fullestWindow(Slots representatives) {
    std::map<int, int> counts;
    for (const auto& slot : representatives) counts[slot.windowIndex] += hasSize(slot) ? 1 : 0;
    const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
    const auto fullest = std::ranges::max_element(counts, fewer);
    return fullest == counts.end() ? std::nullopt : std::optional(fullest->first);
}

bool isUsableRawFrame(Point origin, Size size) {
    const bool isFinite = Rect::from(origin, size).isFinite();
    return isFinite && size.width >= 0 && size.width < 1000 && size.height >= 0 && size.height < 100;
}

} // namespace tavrin::MenuBarAgentSlotPolicy
