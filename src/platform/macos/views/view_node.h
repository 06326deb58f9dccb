#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "views/view.h"
#include "views/view_layout.h"

#include <memory>
#include <optional>

namespace tavrin::macos {

/// A view of a shown tree, which it keeps alive.
using ShownView = std::shared_ptr<const View>;

} // namespace tavrin::macos

// The node's categories stand in files of their own. Each of those files also has functions that others call:
// the linker takes an object out of a library for its functions, never for its categories.

/// One view of the tree. It stacks the nodes of its children, or holds the control that shows what has no
/// children; it draws grounds, and takes the mouse and the keyboard for what is no control.
@interface TavrinViewNode : NSView

@property(nonatomic, readonly) NSArray<TavrinViewNode*>* childNodes;
@property(nonatomic, readonly) NSView* innerControl; // nil for stacks and for what is only drawn

/// Where a press that may become a drag began, in the window's coordinates.
@property(nonatomic) std::optional<NSPoint> pressedAt;
@property(nonatomic) BOOL isDragOver;

- (instancetype)initWithView:(tavrin::macos::ShownView)view deliver:(tavrin::macos::Deliver)deliver;

/// Shows another view of the same kind.
- (void)showView:(tavrin::macos::ShownView)view;

/// `frame` in the superview's coordinates, which count from its top left.
- (void)placeAt:(NSRect)frame sizes:(const tavrin::ControlSizes&)sizes;

- (const tavrin::View&)shownView;
- (void)deliverWork:(tavrin::Work)work;

@end
