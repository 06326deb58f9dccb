#pragma once

#include "concurrency/task.h"
#include "pins/menus/menu_access.h"
#include "pins/menus/menu_tree_reader.h"
#include "pins/running/pinned_run_failure.h"
#include "pins/store/pinned_action.h"

#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// How a run has ended. It says nothing of a run that was cancelled.
using PinnedRunResult = std::expected<void, PinnedRunFailure>;

PinnedRunFailure failureOf(ReadFailure failure, const std::string& application);

/// Follows a pin's path through a menu that can be read, open or not, and presses the last item. Reads only
/// the branch toward the path.
class MenuPathWalk {
  public:
    /// The reader is that of the session, and shared with the work on the queue.
    MenuPathWalk(MenuAccess access, std::shared_ptr<MenuTreeReader> reader, PinnedAction pin)
        : access_(access)
        , reader_(std::move(reader))
        , pin_(std::move(pin)) {}

    Task<PinnedRunResult> press(AccessibilityElement root);

    /// The outermost item that had to be pressed to make it show its items.
    const std::optional<AccessibilityElement>& opened() const { return opened_; }

    /// Whether the last item was pressed, even without an answer: then Escape could reach something else
    /// than the menu.
    bool hasPressed() const { return hasPressed_; }

  private:
    using Level = std::expected<PinnedMenuNode, PinnedRunFailure>;

    Task<Level> readRoot(AccessibilityElement root);
    Task<Level> showItems(PinnedMenuNode parent, std::size_t step);
    Task<Level> openSubmenu(PinnedMenuNode parent, std::size_t step);
    Task<Level> readBranch(PinnedMenuNode parent, std::size_t step);
    Task<MenuTreeReader::Result<bool>> waitForItems(PinnedMenuNode parent);
    Task<bool> looksSettled(PinnedMenuNode parent);
    Task<PinnedRunResult> pressLast(std::vector<PinnedMenuNode> trail);
    Task<std::expected<void, AccessibilityError>> perform(AccessibilityElement element);
    Level childFor(const PinnedMenuStep& step, const PinnedMenuNode& parent) const;
    MenuTreeReader::Leads leadsFrom(std::size_t step) const;
    Level levelFrom(MenuTreeReader::Result<PinnedMenuNode> read) const;

    MenuAccess access_;
    std::shared_ptr<MenuTreeReader> reader_;
    PinnedAction pin_;
    std::optional<AccessibilityElement> opened_;
    MenuTreeReader::Result<bool> hasItems_ = false; // as last seen below the submenu that opens
    bool hasPressed_ = false;
};

} // namespace tavrin
