#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/views/view_node.h"

namespace tavrin::macos {

/// The nodes from `root` down, in the order in which they stand. None for nil.
NSArray<TavrinViewNode*>* nodesFrom(TavrinViewNode* root);

/// The focusable nodes from `root` down, in the order in which they stand.
NSArray<TavrinViewNode*>* focusableNodes(TavrinViewNode* root);

/// The node that has the keyboard, or whose control has it; nil when neither is so.
TavrinViewNode* nodeWithFocus(NSWindow* window);

/// Up and down move the focus among the focusable nodes of the Scroll, or else of the column, around `from`;
/// of all under `root` when it is nil. False for other keys, and when there are no such nodes.
bool moveFocusInList(TavrinViewNode* root, TavrinViewNode* from, NSEvent* event);

/// The key's action of the innermost view around the focus that has one. False when there is none, and while
/// text is being edited.
bool performFocusedKeyAction(NSWindow* window, NSEvent* event);

} // namespace tavrin::macos

/// The keyboard while the node or something in it has the focus.
@interface TavrinViewNode (Keyboard)

/// False when the view has no action for the key.
- (BOOL)performKeyActionFor:(NSEvent*)event;

@end
