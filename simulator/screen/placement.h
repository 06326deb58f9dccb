#pragma once

#include "base/geometry.h"
#include "desktop/desktop_file.h"
#include "vocabulary/vocabulary.h"

#include <vector>

namespace mac_model {

// Where macOS puts what it shows. Screen points.

/// The screen with the point on it, else the primary. With no screen at all, a small one stands in.
ScreenSpec screenFor(const std::vector<ScreenSpec>&, Point);

/// A window of this size on the screen: centred, a little high.
Rect windowFrame(Size, const ScreenSpec&);

/// A window of this size at the right end of the screen, below the menu bar.
Rect windowFrameBelowMenuBar(Size, const ScreenSpec&);

/// Below the area, kept on the screen; the room between holds the arrow. Cut where the screen ends.
Rect popoverFrame(Size, Rect area, const ScreenSpec&);

/// Below the area and as far left, kept on the screen. Cut where the screen ends.
Rect menuFrame(Size, Rect area, const ScreenSpec&);

/// With its corner at the point, or as near to it as the screen has room for the menu.
Rect contextMenuFrame(Size, Point, const ScreenSpec&);

/// Beside the entry that opens it: on its right, or on its left where the right has no room. As high as the
/// screen allows.
Rect submenuFrame(Size, Rect entry, const ScreenSpec&);

} // namespace mac_model
