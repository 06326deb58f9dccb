#pragma once

#include "concurrency/signal.h"
#include "desktop/desktop_file.h"
#include "platform/keyboard.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <string_view>
#include <vector>

namespace mac_model {

/// The Mac's keyboard, and the program's monitors of it.
class KeyboardModel {
  public:
    explicit KeyboardModel(KeyboardLayout layoutAtStart) : layout(layoutAtStart) {}

    KeyboardLayout layout;

    /// The key that makes this character or has this name, with modifiers held; none when the keyboard has no
    /// such key.
    std::optional<KeyPress> strokeOf(std::string_view key, const std::vector<Modifier>&) const;

    /// The program's monitors, which see its keys before its windows do. Those after one that has consumed
    /// the key don't see it.
    Signal<KeyPress, KeyHandling*> monitors;
    KeyHandling showToMonitors(const KeyPress&) const;

    Signal<> onBeep;
};

ModifierFlags flagsOf(const std::vector<Modifier>&);

} // namespace mac_model
