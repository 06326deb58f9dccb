#pragma once

#include "base/geometry.h"
#include "concurrency/signal.h"
#include "views/view.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// NSStatusItem.squareLength.
inline constexpr double squareStatusItemLength = -2;

/// A template image: a symbol of the system by its name, or an image of the bundle by its name.
struct TemplateImage {
    enum class Source { System, Bundle };

    Source source = Source::System;
    std::string name;
    std::string description; // for assistive technology

    bool operator==(const TemplateImage&) const = default;
};

/// Right is a press with the right button, and one with the left button while Control is held.
enum class StatusItemPress { Left, Right };

/// One status item of this process. Destroying it removes it from the menu bar; macOS then forgets its
/// preferred position.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// Points, or `squareStatusItemLength`. macOS moves the items to the left of it.
    virtual void setLength(double length) = 0;
    virtual double length() const = 0;

    /// The name under which macOS keeps the item's place; it reads the stored place when the name is set.
    virtual void setAutosaveName(std::string name) = 0;
    virtual void setVisible(bool visible) = 0;

    virtual void setImage(TemplateImage image) = 0;
    virtual void setToolTip(std::string text) = 0;
    virtual void setAccessibilityLabel(std::string label) = 0;
    /// The state that assistive technology says after the label.
    virtual void setAccessibilityValue(std::string value) = 0;
    /// What assistive technology offers beside the press, which counts as a left one: it has no second
    /// button.
    virtual void setAccessibilityActions(std::vector<ViewAction> actions) = 0;
    virtual void setHiddenFromAccessibility(bool hidden) = 0;
    /// Opacity of the image, 0 to 1.
    virtual void setAlpha(double alpha) = 0;

    /// The drawings behind the image that ignore the mouse: the pill while active, the glow from 0 to 1.
    virtual void setDecorations(bool pillShown, double glow) = 0;

    /// Called when the left or right mouse button is released on the item. An item without an action is
    /// disabled: else the menu bar would light up over its whole length when it is clicked.
    virtual void setAction(std::function<void(StatusItemPress)> action) = 0;

    /// The button on the screen; none while the item has no window. The width is 0 for an item of length 0.
    /// The height is 0 until macOS has placed the item, for up to about a second after its creation since
    /// macOS 26.
    virtual std::optional<Rect> frame() const = 0;

    /// Whether any part of the item is drawn. macOS takes this away for moments while it arranges the menu
    /// bar, and for as long as the menu bar isn't visible; `frame` may then stand above its screen.
    virtual bool isDrawn() const = 0;
};

class StatusItems {
  public:
    virtual ~StatusItems() = default;
    virtual std::unique_ptr<StatusItem> create(double length) = 0;

    /// Fires after `isDrawn` of one of them has changed, at the latest when everything stands still.
    virtual Subscription onDrawnChanged(std::function<void()> handler) = 0;
};

} // namespace tavrin
