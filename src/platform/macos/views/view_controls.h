#pragma once

#include "platform/macos/support/apple.h"
#include "views/view.h"

namespace tavrin::macos {

/// The control that shows views of this one's kind; nil for what stacks others and what is only drawn. A
/// button sends `pressControl:` to `target`, which it doesn't hold. Controls of new kinds are made here.
NSView* makeControl(const View& view, id target);

/// Makes the control show what the view says.
void dressControl(NSView* control, const View& view);

/// Whether the view's control only shows, and lets the mouse and the keyboard go by.
bool isDisplayOnly(const View& view);

} // namespace tavrin::macos
