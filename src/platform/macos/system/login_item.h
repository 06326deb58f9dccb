#pragma once

#include "platform/login_item.h"

namespace tavrin::macos {

class MacLoginItem final : public LoginItem {
  public:
    LoginItemState state() const override;
    std::expected<void, std::string> registerApplication() override;
    std::expected<void, std::string> unregisterApplication() override;
    void openSettings() override;
};

} // namespace tavrin::macos
