#pragma once

#include "platform/macos/support/apple.h"
#include "views/view.h"

namespace tavrin::macos {

inline constexpr double groundRadius = 9;

/// What is drawn behind a view, into the focused context: a card's ground, a divider's line, the mark of a
/// highlighted view.
void drawGround(const View& view, NSRect bounds);

} // namespace tavrin::macos
