#pragma once

#include "platform/defaults.h"
#include "shortcuts/hot_key_shortcut.h"

#include <optional>
#include <string_view>

namespace tavrin {

/// Keeps the toggle shortcut in the application's own preferences.
class ToggleShortcutStore {
  public:
    static constexpr std::string_view key = "Skerrow.toggleShortcut";
    static constexpr HotKeyShortcut defaultShortcut{4, controlKeyFlag | optionKeyFlag}; // ⌃⌥H

    explicit ToggleShortcutStore(Defaults& defaults) : defaults_(defaults) {}

    /// None when the user has switched the shortcut off; the default where nothing usable is stored.
    std::optional<HotKeyShortcut> load() const;
    /// None stores that the shortcut is switched off.
    void save(const std::optional<HotKeyShortcut>& shortcut);

  private:
    Defaults& defaults_;
};

} // namespace tavrin
