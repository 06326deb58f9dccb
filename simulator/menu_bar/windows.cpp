#include "menu_bar/windows.h"

namespace mac_model {

namespace {

using Number = tavrin::WindowServerMenuBar::WindowNumber;

constexpr Number firstBarNumber = 10;
constexpr Number firstItemNumber = 1000;
constexpr Number numbersForItem = 2; // its window, and a second one by fault
constexpr double displacement = 40;  // points

Number numberOf(const StatusItemRecord& item) {
    return firstItemNumber + numbersForItem * static_cast<Number>(item.identifier);
}

} // namespace

WindowReport MenuBarWindows::reportOf(const StatusItemRecord& item) const {
    const auto* owner = processes_.find(item.owner);
    const auto& reports = behaviour_.faults.misreportedWindows;
    const auto found = owner ? reports.find(owner->application.bundleIdentifier) : reports.end();
    return found == reports.end() ? WindowReport::Right : found->second;
}

std::vector<MenuBarWindow> MenuBarWindows::all() const {
    std::vector<MenuBarWindow> windows;
    for (const auto& screen : screens_.screens()) {
        const auto number = firstBarNumber + static_cast<Number>(windows.size());
        const auto& frame = screen.frame;
        windows.push_back(
            {number, {frame.x, frame.y - screens_.menuBarLift(screen), frame.width, screen.menuBarHeight}});
    }
    if (behaviour_.hasHostedBar()) return windows;
    for (const auto* item : items_.items()) {
        if (!item->frame) continue;
        const auto report = reportOf(*item);
        auto frame = screens_.onActiveBar(*item->frame);
        if (report == WindowReport::Displaced) frame.x += displacement;
        windows.push_back({numberOf(*item), frame});
        if (report == WindowReport::Doubled) windows.push_back({numberOf(*item) + 1, frame});
    }
    return windows;
}

const StatusItemRecord* MenuBarWindows::itemWith(std::int64_t number) const {
    if (number < firstItemNumber || behaviour_.hasHostedBar()) return nullptr;
    const auto identifier = static_cast<std::uint64_t>(number - firstItemNumber) / numbersForItem;
    const auto* item = items_.find(StatusItemIdentifier{identifier});
    return item && item->frame ? item : nullptr;
}

} // namespace mac_model
