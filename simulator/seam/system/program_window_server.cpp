#include "seam/system/program_window_server.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <ranges>

namespace mac_model {

namespace {

constexpr tavrin::WindowServerMenuBar::Connection connectionBase = 0x10000;
constexpr tavrin::WindowServerMenuBar::Status failure = 1000;         // kCGErrorFailure
constexpr tavrin::WindowServerMenuBar::Status illegalArgument = 1001; // kCGErrorIllegalArgument

constexpr std::array surfaceLayers{0, 8, 25, 101, 101, 500}; // of each SurfaceKind
constexpr std::uint32_t firstSurfaceNumber = 100'000;
constexpr int menuBarLayer = 24;
constexpr int statusItemLayer = 25;
constexpr ProcessIdentifier windowServerProcess = 140; // nobody asks for its windows by owner
constexpr ProcessIdentifier loginWindowProcess = 141;
constexpr int shieldLayer = 2'147'483'628; // CGShieldingWindowLevel
constexpr std::uint32_t firstShieldNumber = 50;
constexpr ProcessIdentifier dockProcess = 142;
constexpr int dockLayer = 20;
constexpr std::uint32_t dockNumber = 5;

/// The windows of everything on the screen besides the menu bar, from front to back.
std::vector<OnScreenWindow> windowsOf(const SurfaceStack& surfaces) {
    std::vector<OnScreenWindow> windows;
    for (const auto& surface : surfaces.backToFront() | std::views::reverse)
        windows.push_back({firstSurfaceNumber + static_cast<std::uint32_t>(surface->identifier),
                           surface->owner, surfaceLayers[std::size_t(surface->kind)], surface->frame});
    return windows;
}

/// What a locked screen shows in front of everything, which is still there.
void putShields(std::vector<OnScreenWindow>& windows, const ScreensModel& screens) {
    for (const auto& screen : screens.screens())
        windows.push_back({firstShieldNumber + static_cast<std::uint32_t>(windows.size()), loginWindowProcess,
                           shieldLayer, screen.frame});
}

} // namespace

tavrin::WindowServerMenuBar::Functions* ProgramWindowServer::menuBarFunctions() {
    return side_.mac.behaviour.faults.windowServerAbsent ? nullptr : this;
}

ProgramWindowServer::Connection ProgramWindowServer::mainConnection() {
    return connectionBase + side_.connection->process();
}

bool ProgramWindowServer::isMine(Connection connection) const {
    return side_.isOpen() && connection == connectionBase + side_.connection->process();
}

std::expected<std::int32_t, ProgramWindowServer::Status>
ProgramWindowServer::windowCount(Connection connection) {
    if (!isMine(connection)) return std::unexpected(failure);
    // Most processes have some window, even if it is never on the screen.
    return static_cast<std::int32_t>(side_.mac.menuBarWindows.all().size() +
                                     side_.mac.processes.processes().size());
}

std::expected<std::int32_t, ProgramWindowServer::Status>
ProgramWindowServer::processMenuBarWindowList(Connection connection, std::span<WindowNumber> numbers) {
    if (!isMine(connection)) return std::unexpected(failure);
    const auto windows = side_.mac.menuBarWindows.all();
    const auto count = std::min(windows.size(), numbers.size());
    for (std::size_t i = 0; i < count; ++i) numbers[i] = windows[i].number;
    return static_cast<std::int32_t>(count);
}

std::expected<Rect, ProgramWindowServer::Status> ProgramWindowServer::screenRect(Connection connection,
                                                                                 WindowNumber number) {
    if (!isMine(connection)) return std::unexpected(failure);
    const auto windows = side_.mac.menuBarWindows.all();
    const auto found = std::ranges::find(windows, number, &MenuBarWindow::number);
    if (found == windows.end()) return std::unexpected(illegalArgument);
    return found->frame;
}

std::vector<OnScreenWindow> ProgramWindowServer::onScreenWindows() const {
    const auto& unseen = side_.mac.screens.unseen();
    if (!side_.isOpen() || unseen.isDisplayAsleep) return {};
    std::vector<OnScreenWindow> windows;
    if (unseen.isScreenLocked) putShields(windows, side_.mac.screens);
    std::ranges::move(windowsOf(side_.mac.surfaces), std::back_inserter(windows));
    if (!unseen.isMenuBarHidden) putMenuBar(windows);
    // The Dock's window covers its whole screen and is there also when nothing else is.
    if (const auto* primary = side_.mac.screens.primary())
        windows.push_back({dockNumber, dockProcess, dockLayer, primary->frame});
    return windows;
}

ProcessIdentifier ProgramWindowServer::ownerOfBars() const {
    const auto* agent = side_.mac.arrangement.agent();
    return agent ? agent->identifier : windowServerProcess;
}

/// A locked screen hides them behind its shields, and so the list has them still.
void ProgramWindowServer::putMenuBar(std::vector<OnScreenWindow>& windows) const {
    for (const auto& bar : side_.mac.menuBarWindows.all()) {
        const auto* item = side_.mac.menuBarWindows.itemWith(bar.number);
        if (item && !item->isDrawn && item->why != HiddenReason::BarNotVisible) continue;
        windows.push_back({bar.number, item ? item->owner : ownerOfBars(),
                           item ? statusItemLayer : menuBarLayer, bar.frame});
    }
}

} // namespace mac_model
