#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/views/view_renderer.h"
#include "platform/presentation.h"

#include <functional>

@class TavrinPopoverDelegate;

namespace tavrin::macos {

class MacPopover final : public Popover {
  public:
    MacPopover(Scheduler& scheduler, PopoverBehavior behavior, std::function<void()> onClose);
    ~MacPopover() override;
    MacPopover(const MacPopover&) = delete;
    MacPopover& operator=(const MacPopover&) = delete;

    void setContent(View content) override;
    void setBehavior(PopoverBehavior behavior) override;
    bool show(StatusItem& item, Rect area) override;
    void close() override;
    bool isShown() const override;

  private:
    void layOut();
    void highlight(NSStatusBarButton* button);
    void watchOutside();
    void takePlace();
    void didClose();

    CallbackGate gate_;
    std::function<void()> onClose_;
    ViewRenderer renderer_;
    NSPopover* popover_;
    TavrinPopoverDelegate* delegate_; // the popover doesn't hold its delegate
    Subscription windowMoves_;
    Subscription activations_;
    id outsidePresses_ = nil; // the monitor's token while it is shown
    __weak NSStatusBarButton* litButton_ = nil;
    NSStatusBarButton* button_ = nil; // of the item
    NSRect areaInButton_{};
    Rect areaOnScreen_; // where that was when the popover was last at its item
};

} // namespace tavrin::macos
