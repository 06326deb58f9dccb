#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>
#include <string>

namespace tavrin::macos {

/// The program's popovers, windows and menus.
class MacPresentation final : public Presentation {
  public:
    explicit MacPresentation(Scheduler& scheduler) : scheduler_(scheduler), menuGate_(scheduler) {}

    std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) override;
    std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) override;
    std::unique_ptr<Panel> makePanel() override;
    std::unique_ptr<Alert> showAlert(AlertQuestion question,
                                     std::function<void(std::size_t)> onAnswer) override;
    void popUp(Menu menu, StatusItem& item, Rect area) override;

  private:
    Scheduler& scheduler_;
    CallbackGate menuGate_;
};

} // namespace tavrin::macos
