#pragma once

#include "platform/window_server.h"

#include <memory>

namespace tavrin::macos {

class MacWindowServer final : public WindowServer {
  public:
    MacWindowServer();
    ~MacWindowServer() override;

    WindowServerMenuBar::Functions* menuBarFunctions() override { return functions_.get(); }

    std::vector<OnScreenWindow> onScreenWindows() const override;

  private:
    std::unique_ptr<WindowServerMenuBar::Functions> functions_;
};

} // namespace tavrin::macos
