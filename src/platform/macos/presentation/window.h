#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/views/view_renderer.h"
#include "platform/presentation.h"

#include <functional>
#include <string_view>

@class TavrinWindowDelegate;

namespace tavrin::macos {

class MacWindow final : public Window {
  public:
    MacWindow(Scheduler& scheduler, std::string_view title, std::function<void()> onClose);
    ~MacWindow() override;
    MacWindow(const MacWindow&) = delete;
    MacWindow& operator=(const MacWindow&) = delete;

    void setContent(View content) override;
    void placeBelowMenuBar() override;
    void makeKeyAndOrderFront() override;
    void close() override;
    bool isVisible() const override;

  private:
    NSSize layOut();
    void takePlace();

    CallbackGate gate_;
    std::function<void()> onClose_;
    ViewRenderer renderer_;
    NSWindow* window_;
    TavrinWindowDelegate* delegate_; // the window doesn't hold its delegate
    Subscription activations_;
    bool isBelowMenuBar_ = false;
    bool wasShown_ = false;
};

} // namespace tavrin::macos
