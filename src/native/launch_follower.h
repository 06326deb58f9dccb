#pragma once

#include "concurrency/signal.h"
#include "platform/workspace.h"

#include <functional>
#include <optional>
#include <set>

namespace tavrin {

/// Tells applications that have started from those that have ended. It goes by the list of those that run,
/// as notices leave out the ones without an icon in the Dock. Main thread.
class LaunchFollower {
  public:
    struct Handlers {
        std::function<void()> launched;
        std::function<void()> ended;
        std::function<void()> menuBarRestarted; // the process that draws the menu bar is another one
    };

    LaunchFollower(Workspace& workspace, Handlers handlers);
    LaunchFollower(const LaunchFollower&) = delete;
    LaunchFollower& operator=(const LaunchFollower&) = delete;

  private:
    struct Running {
        std::set<ProcessIdentifier> processes;
        std::optional<ProcessIdentifier> menuBarAgent;
    };

    Running running() const;
    void compare();

    Workspace& workspace_;
    Handlers handlers_;
    Running known_;
    Subscription observation_;
};

} // namespace tavrin
