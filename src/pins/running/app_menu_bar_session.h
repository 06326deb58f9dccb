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

/// Walks through an application's own menu bar. Menus that list their items while they are closed stay
/// closed. A menu that had to be opened, and is still open when the session goes because its job was cut
/// short, is sent the Escape key. Waits suspend.
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
    Task<> close(AccessibilityElement opened, bool hasPressed);
    Task<bool> waitUntilMenuCloses();
    bool showsMenu() const;
    void postEscape();

    MenuAccess access_;
    RunningApplication application_;
    std::shared_ptr<MenuTreeReader> reader_;
    bool isWalking_ = false;
};

} // namespace tavrin
