#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/views/view_renderer.h"
#include "platform/presentation.h"

namespace tavrin::macos {

class MacPanel final : public Panel {
  public:
    explicit MacPanel(Scheduler& scheduler);
    ~MacPanel() override;
    MacPanel(const MacPanel&) = delete;
    MacPanel& operator=(const MacPanel&) = delete;

    void setContent(View content) override;
    void show(Rect anchor) override;
    void close() override;
    bool isShown() const override;

  private:
    void place();

    CallbackGate gate_;
    ViewRenderer renderer_;
    NSPanel* panel_;
    Rect anchor_;
};

} // namespace tavrin::macos
