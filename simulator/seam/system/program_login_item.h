#pragma once

#include "platform/login_item.h"
#include "seam/system/program_side.h"

#include <utility>

namespace mac_model {

class ProgramLoginItem final : public tavrin::LoginItem {
  public:
    explicit ProgramLoginItem(ProgramSide side) : side_(std::move(side)) {}

    tavrin::LoginItemState state() const override { return side_.mac.loginItems.state(); }

    std::expected<void, std::string> registerApplication() override { return set(true); }

    std::expected<void, std::string> unregisterApplication() override { return set(false); }

    void openSettings() override;

  private:
    std::expected<void, std::string> set(bool isRegistered);

    ProgramSide side_;
};

} // namespace mac_model
