#include "seam/program_window_server.h"

#include "mac/mac.h"
#include "menu_bar/menu_bar_windows.h"

#include <algorithm>

namespace mac_model {

namespace {

constexpr tavrin::WindowServerMenuBar::Connection connectionBase = 0x10000;
constexpr tavrin::WindowServerMenuBar::Status failure = 1000;         // kCGErrorFailure
constexpr tavrin::WindowServerMenuBar::Status illegalArgument = 1001; // kCGErrorIllegalArgument

constexpr int menuBarLayer = 24;
constexpr int statusItemLayer = 25;
constexpr tavrin::ProcessIdentifier windowServerProcess = 140; // nobody asks for its windows by owner

} // namespace

tavrin::WindowServerMenuBar::Functions* ProgramWindowServer::menuBarFunctions() {
    return mac_.faults().windowServerAbsent ? nullptr : this;
}

ProgramWindowServer::Connection ProgramWindowServer::mainConnection() {
    return connectionBase + connection_->process();
}

bool ProgramWindowServer::isMine(Connection connection) const {
    return connection_->isOpen() && connection == connectionBase + connection_->process();
}

std::expected<std::int32_t, ProgramWindowServer::Status>
ProgramWindowServer::windowCount(Connection connection) {
    if (!isMine(connection)) return std::unexpected(failure);
    // Most processes have some window, be it never on the screen.
    return static_cast<std::int32_t>(menuBarWindows(mac_).size() + mac_.processes().processes().size());
}

std::expected<std::int32_t, ProgramWindowServer::Status>
ProgramWindowServer::processMenuBarWindowList(Connection connection, std::span<WindowNumber> numbers) {
    if (!isMine(connection)) return std::unexpected(failure);
    const auto windows = menuBarWindows(mac_);
    const auto count = std::min(windows.size(), numbers.size());
    for (std::size_t i = 0; i < count; ++i) numbers[i] = windows[i].number;
    return static_cast<std::int32_t>(count);
}

std::expected<tavrin::Rect, ProgramWindowServer::Status>
ProgramWindowServer::screenRect(Connection connection, WindowNumber number) {
    if (!isMine(connection)) return std::unexpected(failure);
    const auto windows = menuBarWindows(mac_);
    const auto found = std::ranges::find(windows, number, &MenuBarWindow::number);
    if (found == windows.end()) return std::unexpected(illegalArgument);
    return found->frame;
}

std::vector<tavrin::OnScreenWindow> ProgramWindowServer::onScreenWindows() const {
    std::vector<tavrin::OnScreenWindow> windows;
    if (!connection_->isOpen()) return windows;
    if (mac_.surfaceWindows) windows = mac_.surfaceWindows();
    for (const auto& bar : menuBarWindows(mac_)) {
        const auto* item = itemWithWindow(mac_, bar.number);
        if (item && !item->isDrawn) continue;
        windows.push_back({bar.number, item ? item->owner : windowServerProcess,
                           item ? statusItemLayer : menuBarLayer, bar.frame});
    }
    return windows;
}

} // namespace mac_model
