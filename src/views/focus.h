#pragma once

#include "views/view.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace tavrin {

// Which view of a tree has the keyboard focus, the same on all platforms.

/// Positions of children, from the root down.
using ViewPath = std::vector<std::size_t>;

/// Whether Tab reaches it.
bool takesFocus(const View&);

/// Whether a press focuses it. The system's controls are pressed without that.
bool takesFocusWhenPressed(const View&);

/// A view as the keyboard meets it.
struct FocusPlace {
    enum class List { None, Column, Scroll }; // what up and down stay in

    ViewPath path;
    bool takesFocus = false;
    bool isListed = false; // up and down reach it
    List list = List::None;
};

FocusPlace focusPlaceOf(const View&, ViewPath);

/// All views of a tree, parents before children, in the order in which they stand.
using FocusPlaces = std::vector<FocusPlace>;

FocusPlaces focusPlacesOf(const View& root);

enum class FocusStep { Next, Previous };

/// The view at the path, or else the nearest that takes the focus: the one that shares most of the path, and
/// of these first one around the place, then the one fewest siblings away.
std::optional<ViewPath> focusNear(const FocusPlaces&, const ViewPath&);

/// Where Tab leads: through everything that takes the focus, round and round.
std::optional<ViewPath> focusBeside(const FocusPlaces&, const std::optional<ViewPath>& from, FocusStep);

/// Where up and down lead: among the listed views of the Scroll or else the column around `from`, to its
/// ends, where the focus stays. Nothing when there are none.
std::optional<ViewPath> focusInList(const FocusPlaces&, const std::optional<ViewPath>& from, FocusStep);

/// Where the focus belongs while trees come and go. It belongs to the place where a person or the program put
/// it. It stands there or nearest to it, and goes back when that place takes it again.
class KeptFocus {
  public:
    void moveTo(ViewPath path) { belongsAt_ = standsAt_ = std::move(path); }

    void clear() { belongsAt_ = standsAt_ = std::nullopt; }

    /// The renderer sees the focus there, or nowhere. That it stands where `settleIn` put it is no news.
    void seenAt(std::optional<ViewPath> path) {
        if (path != standsAt_) belongsAt_ = standsAt_ = std::move(path);
    }

    /// Finds its place in a new tree.
    const std::optional<ViewPath>& settleIn(const FocusPlaces& places) {
        return standsAt_ = belongsAt_ ? focusNear(places, *belongsAt_) : std::nullopt;
    }

    const std::optional<ViewPath>& standsAt() const { return standsAt_; }

  private:
    std::optional<ViewPath> belongsAt_;
    std::optional<ViewPath> standsAt_;
};

} // namespace tavrin
