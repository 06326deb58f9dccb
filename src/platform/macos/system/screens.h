#pragma once

#include "concurrency/scheduler.h"
#include "platform/screens.h"

namespace tavrin::macos {

class MacScreens final : public Screens {
  public:
    explicit MacScreens(Scheduler& scheduler) : scheduler_(scheduler) {}

    std::vector<Screen> screens() const override;
    Subscription onChanged(std::function<void()> handler) override;
    bool areShown() const override;
    Subscription onShownChanged(std::function<void()> handler) override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
