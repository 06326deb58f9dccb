#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/menu.h"

namespace tavrin::macos {

/// A menu of AppKit's that delivers the action of what is chosen. It holds all that it needs.
NSMenu* makeMenu(const Menu& menu, const Deliver& deliver);

} // namespace tavrin::macos
