#pragma once

#include "platform/macos/views/view_node.h"

namespace tavrin::macos {

/// Tells assistive technology what the view is and what can be done with it, and gives the right mouse button
/// its menu.
void describe(TavrinViewNode* node);

} // namespace tavrin::macos

/// What assistive technology and the right mouse button are offered.
@interface TavrinViewNode (Accessibility)
@end
