#pragma once

#include "base/geometry.h"
#include "platform/menu.h"
#include "platform/status_items.h"
#include "views/view.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

enum class PopoverBehavior {
    Transient, // follows its item, and closes on any press outside it, before that press does anything else
    ApplicationDefined, // stays where it is while its item moves, and closes only when told to
};

/// A popover with an arrow. Destroying it closes it without telling.
class Popover {
  public:
    virtual ~Popover() = default;
    virtual void setContent(View content) = 0;
    /// A transient one goes to where its item is now.
    virtual void setBehavior(PopoverBehavior behavior) = 0;
    /// Shows it below `area`, a rectangle on the screen inside `item`'s button; does nothing and answers
    /// false when the item has no window. An item that isn't drawn may get no popover although macOS says
    /// that it is shown: only `isShown` tells whether it came up.
    virtual bool show(StatusItem& item, Rect area) = 0;
    virtual void close() = 0;
    /// Whether its window is on a screen.
    virtual bool isShown() const = 0;
};

/// A titled window, closable and of the size of its content. Destroying it closes it without telling.
class Window {
  public:
    virtual ~Window() = default;
    virtual void setContent(View content) = 0;
    /// Has the window open at the right end of the active screen, below the menu bar; otherwise it opens in
    /// the middle. For a window that hasn't been shown yet.
    virtual void placeBelowMenuBar() = 0;
    virtual void makeKeyAndOrderFront() = 0;
    virtual void close() = 0;
    virtual bool isVisible() const = 0;
};

/// A panel without a title bar, above the windows of all applications; showing it takes the keyboard from
/// nobody. Destroying it takes it from the screen.
class Panel {
  public:
    virtual ~Panel() = default;
    virtual void setContent(View content) = 0;
    /// Shows it below `anchor`, a rectangle on the screen, and keeps it on that screen.
    virtual void show(Rect anchor) = 0;
    virtual void close() = 0;
    virtual bool isShown() const = 0;
};

/// The question of an alert. Return presses the first button, Escape one that is called "Cancel".
struct AlertQuestion {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;
    std::optional<IconOfApplication> icon; // the program's own without one, or when the system knows none
};

/// An alert on the screen. Destroying it takes it away without an answer.
class Alert {
  public:
    virtual ~Alert() = default;
    virtual void bringToFront() = 0;
};

/// Puts Tavrin's views on the screen.
class Presentation {
  public:
    virtual ~Presentation() = default;

    /// `onClose` runs after the popover has closed, whoever closed it.
    virtual std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) = 0;

    /// `onClose` runs when the window is about to close, whoever closes it.
    virtual std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) = 0;

    virtual std::unique_ptr<Panel> makePanel() = 0;

    /// Shows a modal alert and returns at once; activate the application first. `onAnswer` gets the number of
    /// the button that was pressed, at most once, and may destroy the alert.
    virtual std::unique_ptr<Alert> showAlert(AlertQuestion question,
                                             std::function<void(std::size_t button)> onAnswer) = 0;

    /// Shows the menu below `area`, a rectangle on the screen inside `item`'s button, and returns at once;
    /// the menu tracks the mouse until something was chosen or it was dismissed.
    virtual void popUp(Menu menu, StatusItem& item, Rect area) = 0;
};

} // namespace tavrin
