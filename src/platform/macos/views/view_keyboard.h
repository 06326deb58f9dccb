#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/views/view_node.h"
#include "views/focus.h"

#include <optional>

namespace tavrin::macos {

/// The nodes from `root` down, in the order in which they stand. None for nil.
NSArray<TavrinViewNode*>* nodesFrom(TavrinViewNode* root);

/// Null when no node stands there.
TavrinViewNode* nodeAt(TavrinViewNode* root, const ViewPath& path);

/// Where under `root` the keyboard focus is, with a node or its control.
std::optional<ViewPath> focusedPath(TavrinViewNode* root);

/// What of the node is the first responder while it has the focus: its control, or the node.
NSView* keyViewOf(TavrinViewNode* node);

/// Where Tab, Shift-Tab, up or down lead from the focus. Nothing for other keys, and when nothing takes the
/// focus.
std::optional<ViewPath> focusAfterKey(TavrinViewNode* root, NSEvent* event);

/// The key's action of the innermost view around the focus that has one. False when there is none, and while
/// text is being edited.
bool performFocusedKeyAction(NSWindow* window, NSEvent* event);

} // namespace tavrin::macos

/// The keyboard while the node or something in it has the focus.
@interface TavrinViewNode (Keyboard)

/// False when the view has no action for the key.
- (BOOL)performKeyActionFor:(NSEvent*)event;

@end
