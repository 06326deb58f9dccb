#pragma once

#include "platform/macos/support/apple.h"
#include "views/view.h"

namespace tavrin::macos {

/// The control that shows a view of this kind; nil for what stacks others and what is only drawn. A button
/// sends `pressControl:` to `target`, which it doesn't hold. Controls of new kinds are made here.
NSView* makeControl(ViewKind kind, id target);

/// Makes the control show what the view says.
void dressControl(NSView* control, const View& view);

/// Whether the kind's control only shows, and lets the mouse and the keyboard go by.
bool isDisplayOnly(ViewKind kind);

} // namespace tavrin::macos
