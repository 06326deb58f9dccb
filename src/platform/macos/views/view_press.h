#pragma once

#include "platform/macos/views/view_node.h"

namespace tavrin::macos {

/// Whether a press of the node itself does something: it is no control, and its view has something to do.
bool isPressable(TavrinViewNode* node);

} // namespace tavrin::macos

/// Presses with the mouse: of the node's own control, or of the node.
@interface TavrinViewNode (Press)

- (void)pressNode;
- (void)pressControl:(id)sender;

@end
