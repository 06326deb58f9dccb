#pragma once

#include "views/view.h"

#include <cstddef>
#include <optional>
#include <string>
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
    std::optional<std::string> identity{}; // of a row: what it carries to other places
    std::string control{};                 // the identity of a control; empty without one
};

FocusPlace focusPlaceOf(const View&, ViewPath);

/// All views of a tree, parents before children, in the order in which they stand.
using FocusPlaces = std::vector<FocusPlace>;

FocusPlaces focusPlacesOf(const View& root);

bool isWithin(const ViewPath& path, const ViewPath& ancestor);

/// The innermost such list around the path; nothing without one.
const FocusPlace* listAround(const FocusPlaces&, const ViewPath& path, FocusPlace::List);

enum class FocusStep { Next, Previous };

/// The view at the path, or else the nearest that takes the focus: the one that shares most of the path, and
/// of these first one around the place, then the one fewest siblings away.
std::optional<ViewPath> focusNear(const FocusPlaces&, const ViewPath&);

/// Where Tab leads: through everything that takes the focus, round and round.
std::optional<ViewPath> focusBeside(const FocusPlaces&, const std::optional<ViewPath>& from, FocusStep);

/// Where up and down lead: among the listed views of the Scroll or else the column around `from`, to its
/// ends, where the focus stays. Nothing when there are none.
std::optional<ViewPath> focusInList(const FocusPlaces&, const std::optional<ViewPath>& from, FocusStep);

} // namespace tavrin
