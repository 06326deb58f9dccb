#pragma once

#include "concurrency/scheduler.h"
#include "platform/workspace.h"

namespace tavrin::macos {

class MacWorkspace final : public Workspace {
  public:
    explicit MacWorkspace(Scheduler& scheduler) : scheduler_(scheduler) {}

    OperatingSystemVersion operatingSystemVersion() const override;
    bool isMotionReduced() const override;
    std::vector<RunningApplication> runningApplications() const override;
    Subscription onApplicationsChanged(std::function<void()> handler) override;
    std::optional<std::string> bundleIdentifierAt(std::string_view path) const override;
    std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier process) const override;
    std::optional<std::vector<std::byte>> iconPngOfBundle(std::string_view bundleIdentifier) const override;
    std::optional<ProcessIdentifier> menuBarOwner() const override;
    bool activate(ProcessIdentifier process) override;
    bool openUrl(std::string_view url) override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
