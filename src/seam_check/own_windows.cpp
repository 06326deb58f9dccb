#include "seam_check/own_windows.h"

#include "platform/application.h"
#include "platform/window_server.h"
#include "seam_check/waiting.h"

namespace tavrin::seam_check {

using namespace std::chrono_literals;

namespace {

constexpr Size smallest{40, 20}; // points
constexpr Seconds timeMax = 3s;

double areaOf(const Rect& frame) { return frame.width * frame.height; }

} // namespace

OwnWindows::OwnWindows(Platform platform) : platform_(platform) {
    const auto own = platform.application.processIdentifier();
    for (const auto& window : platform.windowServer.onScreenWindows())
        if (window.owner == own) before_.insert(window.number);
}

std::optional<Rect> OwnWindows::appeared() const {
    const auto own = platform_.application.processIdentifier();
    std::optional<Rect> largest;
    for (const auto& window : platform_.windowServer.onScreenWindows()) {
        const bool isNew = window.owner == own && !before_.contains(window.number);
        const bool isShown = window.frame.width >= smallest.width && window.frame.height >= smallest.height;
        if (isNew && isShown && (!largest || areaOf(window.frame) > areaOf(*largest))) largest = window.frame;
    }
    return largest;
}

Task<bool> OwnWindows::comes() const {
    co_return co_await comesTrue(platform_, [this] { return appeared().has_value(); }, timeMax);
}

Task<bool> OwnWindows::goes() const {
    co_return co_await comesTrue(platform_, [this] { return !appeared(); }, timeMax);
}

} // namespace tavrin::seam_check
