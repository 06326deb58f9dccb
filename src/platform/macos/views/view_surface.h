#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/views/view_node.h"

/// Holds the root of the shown tree, and stands in for nodes where something must outlast them: it has the
/// keyboard while no node has it, and is the source of their drags.
@interface TavrinSurfaceView : NSView <NSDraggingSource>

@property(nonatomic, readonly) TavrinViewNode* rootNode;

/// The nodes are being brought in step with a tree, and don't match it yet.
@property(nonatomic, readonly) BOOL isTakingUp;

- (instancetype)initWithDelivery:(tavrin::macos::Deliver)deliver;

/// Keeps the nodes that keep their kind and place. The focus goes where views/kept_focus.h says.
- (void)showView:(tavrin::macos::ShownView)view;

/// Scrolls to the view with the focus where it was in sight before the newest tree. Call it once that tree
/// has been laid out.
- (void)keepFocusInSight;

/// Scrolls until the view with the focus can be seen.
- (void)revealFocus;

/// Takes the keyboard from whatever in it has it.
- (void)takeKeyboard;

/// Moves the focus as Tab, Shift-Tab, up and down do. NO for other keys, and when nothing takes the focus.
- (BOOL)moveFocusWith:(NSEvent*)event;

/// Ends the recorders, which tell the program of their fate by themselves, before the surface leaves the
/// screen for good.
- (void)letRecordersGo;

@end

namespace tavrin::macos {

/// The surface that the view stands on; nil without one.
TavrinSurfaceView* surfaceAround(NSView* view);

} // namespace tavrin::macos
