#pragma once

#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

#include <vector>

namespace mac_model {

/// Makes the surface a titled window of the size of its content, in the place that macOS gives a new window.
void placeTitledWindow(Surface&, const View& content, const std::vector<ScreenSpec>&);

/// Gives a titled window new content; the middle of its top edge stays where it is.
void replaceContent(Surface&, const View& content);

} // namespace mac_model
