#pragma once

#include "base/geometry.h"
#include "platform/screens.h"

#include <optional>
#include <span>

namespace tavrin {

/// The menu bar on which macOS tells where the items of other applications are: with several displays that of
/// the one where the user clicked last. Own items are told where they were last shown, which may be on
/// another. An item is as far from the right edge on each of them, so frames can be carried over.
class ActiveMenuBar {
  public:
    /// `others` are the frames of other applications' items, the rightmost of which tells the display;
    /// `control` is an own item in the menu bar. Screen coordinates. Where either is on no menu bar, frames
    /// stay as they are.
    ActiveMenuBar(std::span<const Rect> others, const Rect& control, std::span<const Screen> screens);

    /// Where an own item with this frame is on the active menu bar.
    Rect placeOf(const Rect& own) const;

    /// How much further right than on the bar of own items.
    double shift() const { return shift_; }

  private:
    double shift_ = 0;
    std::optional<Screen> screen_; // none when both are the same
};

} // namespace tavrin
