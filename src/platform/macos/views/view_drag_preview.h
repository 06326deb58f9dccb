#pragma once

#include "platform/macos/support/apple.h"
#include "views/view.h"

namespace tavrin::macos {

/// What follows the pointer while the view is dragged: its first picture and its label.
NSImage* dragPreview(const View& dragged);

} // namespace tavrin::macos
