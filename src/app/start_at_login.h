#pragma once

#include "platform/login_item.h"

#include <optional>
#include <string>

namespace tavrin {

/// Whether Tavrin starts at login, as the system told when it was last asked. Nothing of it is stored here:
/// the user may change it in System Settings at any time.
class StartAtLogin {
  public:
    explicit StartAtLogin(LoginItem& loginItem);

    bool isOn() const;
    bool needsApproval() const;

    /// Whether it can be turned on: not when the system doesn't find this copy of Tavrin. It says so too of
    /// one that was never registered, so that only a try tells.
    bool isOffered() const { return !hasFailed_ || state_ != LoginItemState::NotFound; }

    /// The system's sentence when it refused the last change; gone when the state has changed since.
    const std::optional<std::string>& refusal() const { return refusal_; }

    void refresh();
    void toggle();

  private:
    LoginItem& loginItem_;
    LoginItemState state_;
    bool hasFailed_ = false;
    std::optional<std::string> refusal_;
};

} // namespace tavrin
