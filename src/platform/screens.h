#pragma once

#include "base/geometry.h"
#include "concurrency/signal.h"

#include <functional>
#include <optional>
#include <vector>

namespace tavrin {

struct Screen {
    Rect frame;
    double scale = 2; // pixels a point
    /// Height of the menu bar at the screen's top edge.
    double menuBarHeight = 0;
    /// The parts of the menu bar beside a camera notch; both absent on a screen without one.
    std::optional<Rect> leftMenuBarArea;
    std::optional<Rect> rightMenuBarArea;

    bool operator==(const Screen&) const = default;
};

/// The connected screens.
class Screens {
  public:
    virtual ~Screens() = default;

    /// The primary screen, whose top left is the origin, comes first. Empty while the displays are being
    /// rearranged.
    virtual std::vector<Screen> screens() const = 0;

    /// Fires after screens were attached, removed or rearranged.
    virtual Subscription onChanged(std::function<void()> handler) = 0;

    /// Whether the user can see what stands on them: not while they sleep, while the screen is locked, or
    /// while another user has them.
    virtual bool areShown() const = 0;

    /// Fires after `areShown` may have changed, and after another Space has come up.
    virtual Subscription onShownChanged(std::function<void()> handler) = 0;
};

} // namespace tavrin
