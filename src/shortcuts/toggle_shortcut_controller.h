#pragma once

#include "concurrency/signal.h"
#include "shortcuts/hot_key_registering.h"
#include "shortcuts/hot_key_shortcut.h"
#include "shortcuts/toggle_shortcut_store.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tavrin {

/// Keeps the shortcut that shows and hides the hidden items from anywhere. The shortcut is loaded and
/// registered when the controller is made.
class ToggleShortcutController {
  public:
    ToggleShortcutController(ToggleShortcutStore store, std::unique_ptr<HotKeyRegistering> registrar,
                             std::function<void()> onPress);
    ToggleShortcutController(const ToggleShortcutController&) = delete;
    ToggleShortcutController& operator=(const ToggleShortcutController&) = delete;

    /// Tells why a shortcut can't be had; nothing when it can.
    std::function<std::optional<std::string>(const HotKeyShortcut&)> conflict;

    const std::optional<HotKeyShortcut>& shortcut() const { return shortcut_.get(); }

    /// The last failure, for the user.
    const std::optional<std::string>& errorMessage() const { return errorMessage_.get(); }

    bool isSuspended() const { return isSuspended_; }

    /// Fires after `shortcut` or `errorMessage` has changed.
    Subscription onChanged(std::function<void()> handler) { return changed_.subscribe(std::move(handler)); }

    /// Takes another shortcut, or keeps the present one and says why in `errorMessage`.
    bool update(const HotKeyShortcut& to);
    /// Switches the shortcut off.
    void clear();

    /// Keep the shortcut from acting while a person types a new one, which may be the same.
    void suspend();
    void resume();

  private:
    bool registerCurrent();
    void registerCurrentShortcut();
    bool refuse(std::string message);

    ToggleShortcutStore store_;
    std::unique_ptr<HotKeyRegistering> registrar_;
    Published<std::optional<HotKeyShortcut>> shortcut_;
    Published<std::optional<std::string>> errorMessage_;
    bool isSuspended_ = false;
    bool isTaken_ = false; // the present shortcut couldn't be registered when that was tried last
    Signal<> changed_;
    Subscription shortcutChanges_;
    Subscription messageChanges_;
};

} // namespace tavrin
