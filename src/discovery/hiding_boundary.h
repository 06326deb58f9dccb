#pragma once

#include "discovery/active_menu_bar.h"

#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace tavrin {

/// The x left of which an item counts as hidden, in screen coordinates, as Tavrin's own items tell it.
class HidingBoundary {
  public:
    /// One that is the same on every display.
    HidingBoundary(double x) : x_(x) {}

    /// One on the menu bar with this own item.
    HidingBoundary(double x, const Rect& control, std::vector<Screen> screens)
        : x_(x)
        , control_(control)
        , screens_(std::move(screens)) {}

    /// The x among other applications' items with these frames.
    double xAmong(std::span<const Rect> others) const {
        return control_ ? x_ + ActiveMenuBar(others, *control_, screens_).shift() : x_;
    }

  private:
    double x_;
    std::optional<Rect> control_;
    std::vector<Screen> screens_;
};

} // namespace tavrin
