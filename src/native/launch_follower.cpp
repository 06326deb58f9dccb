#include "native/launch_follower.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

constexpr const char* menuBarAgent = "com.apple.MenuBarAgent";

} // namespace

LaunchFollower::LaunchFollower(Workspace& workspace, Handlers handlers)
    : workspace_(workspace)
    , handlers_(std::move(handlers))
    , known_(running())
    , observation_(workspace.onApplicationsChanged([this] { compare(); })) {}

LaunchFollower::Running LaunchFollower::running() const {
    Running found;
    for (const auto& application : workspace_.runningApplications()) {
        found.processes.insert(application.processIdentifier);
        if (application.bundleIdentifier == menuBarAgent) found.menuBarAgent = application.processIdentifier;
    }
    return found;
}

/// One that has gone for a moment is remembered, so that the next one counts as another.
void LaunchFollower::compare() {
    auto present = running();
    if (!present.menuBarAgent) present.menuBarAgent = known_.menuBarAgent;
    const auto before = std::exchange(known_, present);
    if (before.menuBarAgent && before.menuBarAgent != present.menuBarAgent) handlers_.menuBarRestarted();
    if (!std::ranges::includes(before.processes, present.processes)) handlers_.launched();
    if (!std::ranges::includes(present.processes, before.processes)) handlers_.ended();
}

} // namespace tavrin
