#pragma once

#include "platform/macos/support/apple.h"

/// A button on which a press counts also when it activates the application or makes the window the key one.
@interface TavrinPushButton : NSButton
@end
