#pragma once

#include "concurrency/job.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// This process as the rest of Tavrin uses it: the system's, except for who has the keyboard. macOS often
/// declines when an application without an icon in the Dock asks to be active, so this asks a second time,
/// insisting. And macOS leaves such an application active when its last window has gone, so that the user's
/// next keys reach nobody; this gives the keyboard back to the application whose menus are in the menu bar.
class ForegroundApplication final : public Application {
  public:
    /// All of them outlive this object.
    ForegroundApplication(Scheduler& scheduler, Application& system, Workspace& workspace);
    ForegroundApplication(const ForegroundApplication&) = delete;
    ForegroundApplication& operator=(const ForegroundApplication&) = delete;

    ProcessIdentifier processIdentifier() const override { return system_.processIdentifier(); }

    std::string bundleIdentifier() const override { return system_.bundleIdentifier(); }

    std::string displayVersion() const override { return system_.displayVersion(); }

    void setActivationPolicy(ActivationPolicy policy) override { system_.setActivationPolicy(policy); }

    void activate() override;

    void activateIgnoringOthers() override { system_.activateIgnoringOthers(); }

    bool isActive() const override { return system_.isActive(); }

    Subscription onDidBecomeActive(std::function<void()> handler) override {
        return system_.onDidBecomeActive(std::move(handler));
    }

    bool takesKeys() const override { return system_.takesKeys(); }

    Subscription onKeysReleased(std::function<void()> handler) override {
        return system_.onKeysReleased(std::move(handler));
    }

    void showAboutPanel() override;

    void announce(std::string sentence) override { system_.announce(std::move(sentence)); }

    void terminate() override { system_.terminate(); }

    void replyToShouldTerminate(bool terminates) override { system_.replyToShouldTerminate(terminates); }

  private:
    /// A request that is granted at all is granted within a few hundredths of a second.
    static constexpr Seconds patience{0.1};
    /// Long enough for the next window of a user who goes from one to another.
    static constexpr Seconds keyboardWait{0.3};

    Task<> insist();
    void keysReleased();
    Task<> giveKeyboardBack();

    Scheduler& scheduler_;
    Application& system_;
    Workspace& workspace_;
    Job<> insistence_;
    Job<> givingBack_;
    std::vector<Subscription> observations_;
};

} // namespace tavrin
