#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

// Moves the keyboard focus of a surface. Where it goes is decided by the program's own views/focus.h.

/// Replaces the surface's content: scrolling and focus stay where they can, and a focused view that is in
/// sight stays in sight.
void showAnew(Surface&, LaidOutView content);

/// Scrolls until the focused view can be seen.
void revealFocus(Surface&);

/// As Tab does. False when nothing takes the focus.
bool moveFocus(Surface&, FocusStep);

/// As up and down do. False when there is no list.
bool moveFocusInList(Surface&, FocusStep);

/// As the program does. False when nothing there takes the focus.
bool focusOn(Surface&, const ViewPath&);

/// As a press at the point does.
void focusAt(Surface&, Point);

} // namespace mac_model
