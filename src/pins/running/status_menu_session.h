#pragma once

#include "concurrency/task.h"
#include "pins/menus/live_status_items.h"
#include "pins/menus/menu_access.h"
#include "pins/menus/menu_tree_reader.h"
#include "pins/running/menu_path_walk.h"
#include "pins/store/pinned_action.h"

#include <expected>
#include <memory>
#include <optional>

namespace tavrin {

/// One opening of a status item's menu, which is closed again even when it opens too late to be used. A menu
/// that is still open when the session goes, because its job was cut short, is sent the Escape key. Waits
/// suspend.
class StatusMenuSession {
  public:
    enum class Failure {
        DidNotOpen,
        TimedOut, // not one message was answered
        Denied,   // this process may not use Accessibility
    };

    StatusMenuSession(MenuAccess access, LiveStatusItem item);
    StatusMenuSession(const StatusMenuSession&) = delete;
    StatusMenuSession& operator=(const StatusMenuSession&) = delete;
    ~StatusMenuSession();

    /// Presses the item, and clicks it where that opens no menu within the time-out; waits as long once more.
    Task<std::expected<void, Failure>> open(Seconds timeout);

    /// Whether it took a click to open the menu.
    bool openedByClick() const { return openedByClick_; }

    /// Reads the whole of the open menu.
    Task<std::expected<PinnedMenuNode, ReadFailure>> snapshot();

    /// Walks the pin's path in the open menu and presses its last item.
    Task<PinnedRunResult> press(PinnedAction pin);

    /// Closes the menu if it is still open.
    Task<> close();

    /// Whether the menu went away by itself in that time.
    Task<bool> waitUntilMenuCloses(Seconds timeout);

  private:
    enum class Presence {
        Absent,
        Empty, // it is open and lists nothing yet
        Shown,
        Unanswered,
        Denied,
    };

    struct Sighting {
        Presence presence = Presence::Absent;
        std::optional<AccessibilityElement> menu;
    };

    static Sighting look(Accessibility& accessibility, const WindowServer& windowServer,
                         const LiveStatusItem& item, Seconds timeout);
    static Sighting unseen(ReadFailure failure);
    static Sighting menuAmong(Accessibility& accessibility, const AccessibilityElements& children,
                              Seconds timeout);

    Task<Sighting> look(Seconds timeout);
    Task<bool> looksDecided();
    Task<Presence> waitForMenu(Seconds timeout);
    Task<bool> looksOtherThanOpen();
    Task<bool> cancelMenu();
    bool isKnownToBeOpen() const;
    bool canBeClicked() const;
    void postEscape();

    MenuAccess access_;
    LiveStatusItem item_;
    std::optional<AccessibilityElement> menu_;
    Presence seen_ = Presence::Unanswered; // by the last look that says something of the menu
    std::shared_ptr<MenuTreeReader> reader_;
    bool openedByClick_ = false;
    bool mayBeOpen_ = false;
    bool hasPressed_ = false; // the path's last item, even without an answer
};

} // namespace tavrin
