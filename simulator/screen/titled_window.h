#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

#include <vector>

namespace mac_model {

/// Where a window stands when it opens: in the place that macOS gives a new window, or at the right end below
/// the menu bar.
enum class WindowPlace { Usual, BelowMenuBar };

/// Makes the surface a titled window of the size of its content.
void placeTitledWindow(Surface&, const View& content, const std::vector<ScreenSpec>&,
                       WindowPlace = WindowPlace::Usual);

/// Gives a titled window new content; the middle of its top edge stays where it is.
void replaceContent(Surface&, const View& content);

} // namespace mac_model
