#pragma once

#include "platform/macos/support/apple.h"
#include "views/drag_preview.h"

namespace tavrin::macos {

NSImage* imageOf(const DragPreview& preview);

} // namespace tavrin::macos
