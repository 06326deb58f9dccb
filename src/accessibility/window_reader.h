#pragma once

#include "accessibility/element_walk.h"
#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <expected>
#include <vector>

namespace tavrin {

/// An element in a window of an application that shows parts of others there.
struct WindowElement {
    MenuBarElement element;
    ProcessIdentifier process = -1; // that answers for it
    int window = 0;                 // index among the application's windows
};

/// Reads the items in the windows of one application with one message an element. Other processes may answer
/// for some of them: one that doesn't costs one time-out and its elements, while a time-out of the
/// application itself ends the reading. Off the main thread.
class WindowReader {
  public:
    WindowReader(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned);

    /// The buttons, the menu bar items and the groups without children, in the order of the tree. None when
    /// the application tells of no windows.
    std::expected<std::vector<WindowElement>, ReadFailure> readItems(ProcessIdentifier process) const;

  private:
    class Collector;

    Accessibility& accessibility_;
    Seconds timeout_;
    AbandonFlag abandoned_;
};

} // namespace tavrin
