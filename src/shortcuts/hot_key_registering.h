#pragma once

#include "shortcuts/hot_key_shortcut.h"

#include <functional>

namespace tavrin {

/// One system-wide registration of a shortcut; destroying it ends the registration.
class HotKeyRegistering {
  public:
    HotKeyRegistering() = default;
    HotKeyRegistering(const HotKeyRegistering&) = delete;
    HotKeyRegistering& operator=(const HotKeyRegistering&) = delete;
    virtual ~HotKeyRegistering() = default;

    /// Replaces the shortcut registered before, which is gone also when this fails.
    [[nodiscard]] virtual bool registerShortcut(const HotKeyShortcut& shortcut) = 0;
    virtual void unregister() = 0;

    /// Called each time the shortcut is pressed; doesn't destroy this object.
    std::function<void()> onPress;
};

} // namespace tavrin
