#include "app/start_at_login.h"

namespace tavrin {

StartAtLogin::StartAtLogin(LoginItem& loginItem) : loginItem_(loginItem), state_(loginItem.state()) {}

bool StartAtLogin::isOn() const { return state_ == LoginItemState::Enabled || needsApproval(); }

bool StartAtLogin::needsApproval() const { return state_ == LoginItemState::RequiresApproval; }

void StartAtLogin::refresh() {
    const auto state = loginItem_.state();
    if (state != state_) refusal_.reset();
    state_ = state;
}

void StartAtLogin::toggle() {
    const bool wasOn = isOn();
    const auto change = wasOn ? loginItem_.unregisterApplication() : loginItem_.registerApplication();
    refresh();
    refusal_.reset();
    hasFailed_ = isOn() == wasOn;
    // What waits for approval is told as an error, too, although it is registered.
    if (hasFailed_ && !change) refusal_ = change.error();
}

} // namespace tavrin
