#pragma once

#include "concurrency/scheduler.h"
#include "platform/application.h"

namespace tavrin::macos {

class MacApplication final : public Application {
  public:
    explicit MacApplication(Scheduler& scheduler) : scheduler_(scheduler) {}

    ProcessIdentifier processIdentifier() const override;
    std::string bundleIdentifier() const override;
    std::string displayVersion() const override;
    void setActivationPolicy(ActivationPolicy policy) override;
    void activate() override;
    void activateIgnoringOthers() override;
    bool isActive() const override;
    Subscription onDidBecomeActive(std::function<void()> handler) override;
    bool takesKeys() const override;
    Subscription onKeysReleased(std::function<void()> handler) override;
    void showAboutPanel() override;
    void announce(std::string sentence) override;
    void terminate() override;
    void replyToShouldTerminate(bool terminates) override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
