#pragma once

#include "concurrency/task.h"
#include "pins/menus/menu_access.h"
#include "pins/menus/menu_tree_reader.h"
#include "pins/running/menu_path_walk.h"
#include "pins/store/pinned_action.h"
#include "platform/workspace.h"

#include <memory>
#include <optional>

namespace tavrin {

/// A walk in an application's own menu bar. Its menus stay closed where they list their items all the same.
/// One that had to be opened and is still open when the session goes, because its job was cut short, is sent
/// the Escape key. Main thread; its waits suspend.
class AppMenuBarSession {
  public:
    AppMenuBarSession(MenuAccess access, RunningApplication application);
    AppMenuBarSession(const AppMenuBarSession&) = delete;
    AppMenuBarSession& operator=(const AppMenuBarSession&) = delete;
    ~AppMenuBarSession();

    /// Brings the application to the front, walks the pin's path from the titles in the menu bar down, and
    /// presses its last item. What it opened on the way is closed again.
    Task<PinnedRunResult> press(PinnedAction pin);

  private:
    using Bar = AxMessenger::Answer<std::optional<AccessibilityElement>>;

    Task<> bringForward();
    Task<bool> isFrontmostOrSilent();
    Task<Bar> menuBar();
    Task<> close(AccessibilityElement opened);
    bool showsMenu() const;
    void postEscape();

    MenuAccess access_;
    RunningApplication application_;
    std::shared_ptr<MenuTreeReader> reader_;
    bool isWalking_ = false;
};

} // namespace tavrin
