#pragma once

#include "concurrency/signal.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tavrin {

/// The place of a key, numbered as on the US layout: 0 is A, 49 Space (HIToolbox's Events.h).
using KeyCode = std::uint32_t;

/// A set of modifier keys, in the bits of NSEvent.ModifierFlags.
using ModifierFlags = std::uint64_t;
inline constexpr ModifierFlags shiftKeyFlag = 0x20000;
inline constexpr ModifierFlags controlKeyFlag = 0x40000;
inline constexpr ModifierFlags optionKeyFlag = 0x80000;
inline constexpr ModifierFlags commandKeyFlag = 0x100000;

/// A key going down. The flags may hold bits of other modifier keys as well.
struct KeyPress {
    KeyCode keyCode = 0;
    ModifierFlags modifierFlags = 0;

    bool operator==(const KeyPress&) const = default;
};

enum class KeyHandling { Consumed, PassedOn };

/// The keyboard as this process has it.
class Keyboard {
  public:
    virtual ~Keyboard() = default;

    /// The character that the key makes on the current layout when no modifier key is held, dead keys
    /// included; empty when there is none, as with an input method that has no layout.
    virtual std::string character(KeyCode key) const = 0;

    /// Shows `handler` each key that goes down for a window of this process, before the window gets it (a
    /// local event monitor). A handler may cancel its own subscription.
    virtual Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) = 0;

    /// The alert sound that the user has chosen.
    virtual void beep() = 0;
};

} // namespace tavrin
