#pragma once

#include "platform/window_server.h"

#include <algorithm>
#include <map>
#include <optional>

namespace tavrin {

/// Windows by their numbers.
class FakeWindowServer final : public WindowServer, public WindowServerMenuBar::Functions {
  public:
    using Number = WindowServerMenuBar::WindowNumber;
    using Connection = WindowServerMenuBar::Connection;
    using Status = WindowServerMenuBar::Status;

    WindowServerMenuBar::Functions* menuBarFunctions() override { return isAbsent ? nullptr : this; }

    std::vector<OnScreenWindow> onScreenWindows() const override { return onScreen; }

    Connection mainConnection() override { return 7; }

    std::expected<std::int32_t, Status> windowCount(Connection) override {
        if (count) return *count;
        return static_cast<std::int32_t>(frames.size());
    }

    std::expected<std::int32_t, Status> processMenuBarWindowList(Connection connection,
                                                                 std::span<Number> windows) override {
        if (connection != 7) return std::unexpected(1000);
        std::size_t next = 0;
        for (const auto& [number, frame] : frames) {
            if (next < windows.size()) windows[next++] = number;
        }
        if (listed) return *listed;
        return static_cast<std::int32_t>(next);
    }

    std::expected<Rect, Status> screenRect(Connection, Number window) override {
        const auto found = frames.find(window);
        if (found == frames.end()) return std::unexpected(1000);
        auto frame = found->second;
        if (++reads[window] % 2 == 0) frame.x += shiftAfterListing;
        return frame;
    }

    bool isAbsent = false;
    std::vector<OnScreenWindow> onScreen;
    std::map<Number, Rect> frames;
    std::map<Number, int> reads;
    double shiftAfterListing = 0; // windows are read in pairs: to list them, and to look again
    std::optional<std::expected<std::int32_t, Status>> count;
    std::optional<std::expected<std::int32_t, Status>> listed;
};

} // namespace tavrin
