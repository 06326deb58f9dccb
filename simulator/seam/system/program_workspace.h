#pragma once

#include "concurrency/signal.h"
#include "platform/workspace.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <vector>

namespace mac_model {

/// Workspace of the program's process. Its list of applications changes only when the main loop turns.
class ProgramWorkspace final : public tavrin::Workspace {
  public:
    explicit ProgramWorkspace(ProgramSide);
    ProgramWorkspace(const ProgramWorkspace&) = delete;
    ProgramWorkspace& operator=(const ProgramWorkspace&) = delete;

    OperatingSystemVersion operatingSystemVersion() const override;

    bool isMotionReduced() const override { return side_.mac.behaviour.reducesMotion; }

    std::vector<RunningApplication> runningApplications() const override { return state_->applications; }

    Subscription onApplicationsChanged(std::function<void()> handler) override;
    std::optional<std::string> bundleIdentifierAt(std::string_view path) const override;
    std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier) const override;
    std::optional<std::vector<std::byte>> iconPngOfBundle(std::string_view bundleIdentifier) const override;
    std::optional<ProcessIdentifier> menuBarOwner() const override;
    bool activate(ProcessIdentifier) override;
    bool openUrl(std::string_view url) override;

  private:
    struct State {
        std::vector<RunningApplication> applications;
        Signal<> onChanged;
    };

    std::vector<RunningApplication> present() const;
    void updateLater();
    bool declinesActivation() const;

    ProgramSide side_;
    std::shared_ptr<State> state_ = std::make_shared<State>();
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
