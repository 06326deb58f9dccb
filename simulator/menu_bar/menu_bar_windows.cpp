#include "menu_bar/menu_bar_windows.h"

#include "mac/mac.h"

namespace mac_model {

namespace {

using Number = tavrin::WindowServerMenuBar::WindowNumber;

constexpr Number firstBarNumber = 10;
constexpr Number firstItemNumber = 1000;
constexpr Number numbersForItem = 2; // its window, and a second one by fault
constexpr int lastVersionWithItemWindows = 26;
constexpr double displacement = 40; // points

WindowReport reportOf(Mac& mac, const StatusItemRecord& item) {
    const auto* owner = mac.processes().find(item.owner);
    const auto& reports = mac.faults().misreportedWindows;
    const auto found = owner ? reports.find(owner->application.bundleIdentifier) : reports.end();
    return found == reports.end() ? WindowReport::Right : found->second;
}

Number numberOf(const StatusItemRecord& item) {
    return firstItemNumber + numbersForItem * static_cast<Number>(item.identifier);
}

bool haveItemsWindows(Mac& mac) { return mac.version().major <= lastVersionWithItemWindows; }

} // namespace

std::vector<MenuBarWindow> menuBarWindows(Mac& mac) {
    std::vector<MenuBarWindow> windows;
    for (const auto& screen : mac.screens().screens()) {
        const auto number = firstBarNumber + static_cast<Number>(windows.size());
        const auto& frame = screen.frame;
        windows.push_back({number, {frame.x, frame.y, frame.width, screen.menuBarHeight}});
    }
    if (!haveItemsWindows(mac)) return windows;
    for (const auto* item : mac.statusArea().items()) {
        if (!item->frame) continue;
        const auto report = reportOf(mac, *item);
        auto frame = *item->frame;
        if (report == WindowReport::Displaced) frame.x += displacement;
        windows.push_back({numberOf(*item), frame});
        if (report == WindowReport::Doubled) windows.push_back({numberOf(*item) + 1, frame});
    }
    return windows;
}

const StatusItemRecord* itemWithWindow(Mac& mac, std::int64_t number) {
    if (number < firstItemNumber || !haveItemsWindows(mac)) return nullptr;
    const auto identifier = static_cast<std::uint64_t>(number - firstItemNumber) / numbersForItem;
    const auto* item = mac.statusArea().find(StatusItemIdentifier{identifier});
    return item && item->frame ? item : nullptr;
}

} // namespace mac_model
