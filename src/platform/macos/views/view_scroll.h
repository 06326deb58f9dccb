#pragma once

#include "base/geometry.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/views/view_node.h"

#include <vector>

namespace tavrin::macos {

NSScrollView* makeScrollView();

/// The view in which the nodes of the children stand.
NSView* groundOfChildren(TavrinViewNode* node);

/// Makes what scrolls as high as its children, which stand at `frames`. The offset stays as far as it can.
void sizeScrolled(TavrinViewNode* scroll, const std::vector<Rect>& frames);

/// Scrolls on while a drag is at the upper or lower edge of the Scroll around `node`.
void scrollTowards(NSPoint pointInWindow, NSView* node);

} // namespace tavrin::macos
