#pragma once

#include "platform/macos/views/view_node.h"

namespace tavrin::macos {

/// Tells assistive technology what the view is and what can be done with it, and gives the right mouse button
/// its menu.
void describe(TavrinViewNode* node);

} // namespace tavrin::macos

/// The view as assistive technology and the right mouse button meet it.
@interface TavrinViewNode (Accessibility)
@end
