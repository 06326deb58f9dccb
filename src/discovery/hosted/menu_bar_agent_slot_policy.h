#pragma once

#include "base/geometry.h"

#include <optional>
#include <span>
#include <vector>

namespace tavrin {

/// A place in one of the agent's windows where an item stands, or where something stands for items.
struct MenuBarAgentSlot {
    enum class Kind { button, proxy };

    Kind kind = Kind::button;
    int windowIndex = 0;
    Rect frame;

    bool operator==(const MenuBarAgentSlot&) const = default;
};

/// Which of the places count as items of the bar.
namespace MenuBarAgentSlotPolicy {

struct Representatives {
    std::vector<MenuBarAgentSlot> slots; // of all windows, by window, then from left to right
    // The bar repeats on each display; these are of the fullest window.
    std::optional<MenuBarAgentSlot> leading; // the leftmost with a size
    int iconCount = 0;

    bool operator==(const Representatives&) const = default;
};

/// Keeps every button, and a proxy only where it stands left of all buttons of its window, in their row:
/// there it stands for items that have no buttons.
Representatives representativeSlots(std::span<const MenuBarAgentSlot> slots);

/// The window with most slots that have a size, the first of several; none without slots.
std::optional<int> fullestWindow(std::span<const MenuBarAgentSlot> representatives);

/// Whether the frame can be a place: finite, at least 0 and below 1000 points wide, at least 0 and below 100
/// high.
bool isUsableRawFrame(Point origin, Size size);

} // namespace MenuBarAgentSlotPolicy

} // namespace tavrin
