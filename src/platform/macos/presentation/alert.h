#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/presentation.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace tavrin::macos {

class MacAlert final : public Alert {
  public:
    MacAlert(Scheduler& scheduler, const AlertQuestion& question, std::function<void(std::size_t)> onAnswer);
    ~MacAlert() override;
    MacAlert(const MacAlert&) = delete;
    MacAlert& operator=(const MacAlert&) = delete;

    void bringToFront() override;

  private:
    CallbackGate gate_;
    std::shared_ptr<bool> isWanted_ = std::make_shared<bool>(true);
    NSAlert* alert_;
};

} // namespace tavrin::macos
