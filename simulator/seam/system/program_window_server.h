#pragma once

#include "platform/window_server.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <utility>

namespace mac_model {

/// The window server's private functions as one life of the program's process finds them.
class ProgramWindowServer final : public tavrin::WindowServer,
                                  private tavrin::WindowServerMenuBar::Functions {
  public:
    explicit ProgramWindowServer(ProgramSide side) : side_(std::move(side)) {}

    tavrin::WindowServerMenuBar::Functions* menuBarFunctions() override;

    std::vector<OnScreenWindow> onScreenWindows() const override;

  private:
    void putMenuBar(std::vector<OnScreenWindow>&) const;
    ProcessIdentifier ownerOfBars() const;

    using Connection = tavrin::WindowServerMenuBar::Connection;
    using WindowNumber = tavrin::WindowServerMenuBar::WindowNumber;
    using Status = tavrin::WindowServerMenuBar::Status;

    Connection mainConnection() override;
    std::expected<std::int32_t, Status> windowCount(Connection) override;
    std::expected<std::int32_t, Status> processMenuBarWindowList(Connection,
                                                                 std::span<WindowNumber>) override;
    std::expected<Rect, Status> screenRect(Connection, WindowNumber) override;

    bool isMine(Connection) const;

    ProgramSide side_;
};

} // namespace mac_model
