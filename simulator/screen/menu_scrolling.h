#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>

namespace mac_model {

// A menu that has no room on its screen for all of its rows shows a part of them. An arrow covers each edge
// beyond which there are more; the rows move on while the pointer rests on one.

/// Where rows can be seen and pressed: the menu without its arrows.
Rect shownRows(const Surface& menu);

/// What can be seen between two arrows.
double heightOfPage(const Surface& menu);

/// Moves the rows as far as they go.
void scrollRowsTo(Surface& menu, double offset);

/// Moves the rows until this one is seen in full.
void revealRow(Surface& menu, std::size_t row);

/// How far the arrow at the point moves the rows at a time; 0 where there is none.
double scrollStepAt(const Surface& menu, Point);

} // namespace mac_model
