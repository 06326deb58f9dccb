#pragma once

#include "platform/hot_keys.h"
#include "platform/keyboard.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <utility>
#include <vector>

namespace mac_model {

// The keyboard and the hot keys as one life of the program's process has them.

class ProgramKeyboard final : public tavrin::Keyboard {
  public:
    explicit ProgramKeyboard(ProgramSide side) : side_(std::move(side)) {}

    std::string character(KeyCode) const override;
    Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) override;
    void beep() override;

  private:
    ProgramSide side_;
};

/// A press is an event that the program's main loop finds when it turns.
class ProgramHotKeys final : public tavrin::HotKeys {
  public:
    using Handler = std::function<Handling(const HotKeyIdentifier&)>;

    explicit ProgramHotKeys(ProgramSide side) : side_(std::move(side)) {}

    std::expected<std::unique_ptr<HotKeyReference>, Error> registerHotKey(KeyCode, tavrin::CarbonModifiers,
                                                                          HotKeyIdentifier) override;
    std::unique_ptr<HotKeyEventHandler> installPressHandler(Handler) override;
    std::vector<SymbolicHotKey> symbolicHotKeys() const override;

  private:
    class InstalledHandler;
    using Handlers = std::vector<std::shared_ptr<Handler>>;

    static void deliver(const Handlers&, const HotKeyIdentifier&);

    ProgramSide side_;
    std::shared_ptr<Handlers> handlers_ = std::make_shared<Handlers>(); // the one installed last comes last
};

} // namespace mac_model
