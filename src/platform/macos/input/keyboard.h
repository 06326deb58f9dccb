#pragma once

#include "concurrency/scheduler.h"
#include "platform/keyboard.h"

namespace tavrin::macos {

class MacKeyboard final : public Keyboard {
  public:
    explicit MacKeyboard(Scheduler& scheduler) : scheduler_(scheduler) {}

    std::string character(KeyCode key) const override;
    Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) override;
    void beep() override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
