#pragma once

#include "concurrency/scheduler.h"
#include "platform/hot_keys.h"

namespace tavrin::macos {

class MacHotKeys final : public HotKeys {
  public:
    explicit MacHotKeys(Scheduler& scheduler) : scheduler_(scheduler) {}

    std::expected<std::unique_ptr<HotKeyReference>, Error>
    registerHotKey(KeyCode key, CarbonModifiers modifiers, HotKeyIdentifier identifier) override;
    std::unique_ptr<HotKeyEventHandler>
    installPressHandler(std::function<Handling(const HotKeyIdentifier&)> handler) override;
    std::vector<SymbolicHotKey> symbolicHotKeys() const override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
