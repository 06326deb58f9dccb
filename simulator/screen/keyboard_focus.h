#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

// Moves the keyboard focus of a surface. Where it goes is decided by the program's own views/focus.h.

/// Replaces the surface's content by one in the same places: scrolling and focus stay where they can.
void showAnew(Surface&, LaidOutView content);

/// As Tab does. False when nothing takes the focus.
bool moveFocus(Surface&, FocusStep);

/// As up and down do. False when there is no list.
bool moveFocusInList(Surface&, FocusStep);

/// As the program does. False when nothing there takes the focus.
bool focusOn(Surface&, const ViewPath&);

/// As a press at the point does.
void focusAt(Surface&, Point);

} // namespace mac_model
