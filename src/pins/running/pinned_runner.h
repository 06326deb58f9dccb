#pragma once

#include "concurrency/task.h"
#include "pins/menus/live_status_items.h"
#include "pins/menus/menu_access.h"
#include "pins/running/menu_path_walk.h"
#include "pins/store/pinned_action.h"
#include "platform/workspace.h"

#include <expected>
#include <string>
#include <vector>

namespace tavrin {

/// Runs one pin: finds the application, opens the menu, walks down the path, presses its last item and closes
/// the menus that it opened. It knows nothing of the store or of what the user sees.
class PinnedRunner {
  public:
    /// How long a status item's menu has to appear.
    static constexpr Seconds menuOpeningTime{1.2};

    explicit PinnedRunner(MenuAccess access) : access_(access) {}

    Task<PinnedRunResult> run(PinnedAction pin);

  private:
    using Found = std::expected<LiveStatusItem, PinnedRunFailure>;

    Task<PinnedRunResult> runStatusItem(PinnedAction pin);
    Task<PinnedRunResult> runAppMenuBar(PinnedAction pin);
    Task<Found> findStatusItem(PinnedAction pin);
    Task<RunningApplication> withMenuBar(std::vector<RunningApplication> running);
    std::vector<RunningApplication> runningWith(const std::string& bundleIdentifier) const;

    MenuAccess access_;
};

} // namespace tavrin
