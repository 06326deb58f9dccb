#pragma once

#include "platform/macos/support/apple.h"
#include "views/view.h"

#include <string>

namespace tavrin::macos {

NSFont* fontFor(TextStyle style);
NSColor* colorFor(Tone tone);

/// A symbol of the system at this size, 0 for the size of body text; a stand-in for a name that this macOS
/// doesn't know.
NSImage* symbolImage(const std::string& name, double pointSize);

/// An application's icon; a stand-in for an application that isn't installed.
NSImage* iconImage(const IconOfApplication& icon);

} // namespace tavrin::macos
