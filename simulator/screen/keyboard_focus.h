#pragma once

#include "screen/surface.h"

#include <optional>

namespace mac_model {

// Which view of a surface has the keyboard focus. The focus belongs to a place: when the content is rendered
// anew, it is with what then stands there, or nearest to it.

enum class FocusStep { Next, Previous };

/// Whether Tab reaches it.
bool takesFocus(const tavrin::View&);

/// Nothing until the person has moved the focus, and while nothing takes it.
std::optional<ViewPath> focusedPath(const Surface&);

/// As Tab does: through everything that takes the focus, round and round. False when nothing does.
bool moveFocus(Surface&, FocusStep);

/// As up and down do: among the focusable views of the Scroll or else the column that the focus is in, to its
/// ends. False when there are none.
bool moveFocusInList(Surface&, FocusStep);

/// A press focuses a focusable view at the point.
void focusAt(Surface&, tavrin::Point);

} // namespace mac_model
