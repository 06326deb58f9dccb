#pragma once

#include "platform/macos/support/apple.h"

namespace tavrin::macos {

/// The menu of an application without a Dock icon is never on the screen, but the keys of its commands work
/// in our windows, and the system tells the height of the menu bar only to an application that has one.
NSMenu* makeMainMenu();

} // namespace tavrin::macos
