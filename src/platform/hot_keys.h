#pragma once

#include "platform/keyboard.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tavrin {

/// Modifier keys in the bits of Carbon's Events.h.
using CarbonModifiers = std::uint32_t;
inline constexpr CarbonModifiers carbonCommandKey = 0x100;
inline constexpr CarbonModifiers carbonShiftKey = 0x200;
inline constexpr CarbonModifiers carbonOptionKey = 0x800;
inline constexpr CarbonModifiers carbonControlKey = 0x1000;

/// EventHotKeyID: tells the hot keys of one process apart.
struct HotKeyIdentifier {
    std::uint32_t signature = 0; // a four-character code
    std::uint32_t identifier = 0;

    bool operator==(const HotKeyIdentifier&) const = default;
};

/// A registered hot key (EventHotKeyRef); destroying it unregisters the key.
class HotKeyReference {
  public:
    virtual ~HotKeyReference() = default;
};

/// An installed event handler (EventHandlerRef); destroying it removes the handler.
class HotKeyEventHandler {
  public:
    virtual ~HotKeyEventHandler() = default;
};

/// An entry of the system's own list of shortcuts; what its dictionary doesn't hold is absent.
struct SymbolicHotKey {
    std::optional<bool> isEnabled;
    std::optional<std::int64_t> code;
    std::optional<std::int64_t> modifiers; // Carbon's bits

    bool operator==(const SymbolicHotKey&) const = default;
};

/// Carbon's hot keys: keys that reach this process whatever application is active. No consent is needed.
class HotKeys {
  public:
    enum class Handling { Handled, NotHandled };
    /// An OSStatus other than 0.
    using Error = std::int32_t;
    static constexpr Error existsError = -9878; // this process has the key, or another exclusively

    virtual ~HotKeys() = default;

    /// Registers with the application's event target and without options.
    virtual std::expected<std::unique_ptr<HotKeyReference>, Error>
    registerHotKey(KeyCode key, CarbonModifiers modifiers, HotKeyIdentifier identifier) = 0;

    /// Installs a handler for presses of hot keys on the application's event target; null when it can't be
    /// installed. It is told the identifier that the event carries, and isn't called for an event without
    /// one. An event that isn't handled goes on to the handlers installed before. A handler doesn't destroy
    /// itself.
    virtual std::unique_ptr<HotKeyEventHandler>
    installPressHandler(std::function<Handling(const HotKeyIdentifier&)> handler) = 0;

    /// The system's own shortcuts, enabled or not; empty when the system gives no list.
    virtual std::vector<SymbolicHotKey> symbolicHotKeys() const = 0;
};

} // namespace tavrin
