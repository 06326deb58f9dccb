#pragma once

#include "platform/macos/views/view_node.h"

namespace tavrin::macos {

/// Makes the node take drops exactly when its view does.
void followDrops(TavrinViewNode* node);

} // namespace tavrin::macos

/// Drags between the views of one process.
@interface TavrinViewNode (Drag)

@property(nonatomic, readonly) BOOL isDragSource;

- (void)beginDragWith:(NSEvent*)event;

@end
