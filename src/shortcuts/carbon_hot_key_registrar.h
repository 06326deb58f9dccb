#pragma once

#include "platform/hot_keys.h"
#include "shortcuts/hot_key_registering.h"

#include <cstdint>
#include <memory>

namespace tavrin {

/// The system's objects that a registrar holds. Destroying the handle unregisters and removes them.
struct CarbonHotKeyHandle {
    std::unique_ptr<HotKeyEventHandler> eventHandler;
    std::unique_ptr<HotKeyReference> hotKeyRef;
};

class CarbonHotKeyRegistrar final : public HotKeyRegistering {
  public:
    static constexpr std::uint32_t signature = 0x5456524E; // 'TVRN'

    /// `identifier` differs from those of all other registrars of the process.
    CarbonHotKeyRegistrar(HotKeys& hotKeys, std::uint32_t identifier)
        : hotKeys_(hotKeys)
        , identifier_{signature, identifier} {}

    bool registerShortcut(const HotKeyShortcut& shortcut) override;
    void unregister() override;

  private:
    bool installHandler();
    HotKeys::Handling pressed(const HotKeyIdentifier& pressed);

    HotKeys& hotKeys_;
    const HotKeyIdentifier identifier_;
    CarbonHotKeyHandle carbon_;
};

/// Makes registrars, each with an identifier of its own. The process has one such maker, which outlives them.
class HotKeyRegistrars {
  public:
    explicit HotKeyRegistrars(HotKeys& hotKeys) : hotKeys_(hotKeys) {}

    HotKeyRegistrars(const HotKeyRegistrars&) = delete;
    HotKeyRegistrars& operator=(const HotKeyRegistrars&) = delete;

    std::unique_ptr<HotKeyRegistering> make() {
        return std::make_unique<CarbonHotKeyRegistrar>(hotKeys_, nextIdentifier_++);
    }

  private:
    HotKeys& hotKeys_;
    std::uint32_t nextIdentifier_ = 1;
};

} // namespace tavrin
