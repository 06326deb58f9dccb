#pragma once

#include "base/geometry.h"
#include "platform/defaults.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/cf_reference.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::macos {

// Text. Bytes and units that are no character become U+FFFD. Any thread.

/// Never nil.
NSString* toNSString(std::string_view text);
/// A text of the program's in the user's language, by the bundle's table of texts; a text that the table
/// lacks, such as another application's, stays as it is.
NSString* localized(std::string_view text);
CfReference<CFStringRef> cfString(std::string_view text);
/// Empty for nil.
std::string toString(NSString* text);
/// The text of a value that may be of any type or nil; none when it isn't text.
std::optional<std::string> textIn(id value);

// Points and rectangles of Quartz and Accessibility count as the program does: from the top left of the
// primary screen. Any thread.

inline Point pointFromQuartz(CGPoint point) { return {point.x, point.y}; }

inline Size sizeFromQuartz(CGSize size) { return {size.width, size.height}; }

inline Rect rectFromQuartz(CGRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

inline CGPoint quartzPoint(Point point) { return CGPointMake(point.x, point.y); }

// Points and rectangles of Cocoa's screens and windows count from the bottom left of the primary screen. Main
// thread.

/// Height of the primary screen in points; 0 while there is none.
double primaryScreenHeight();

inline Rect flipped(Rect rect, double primaryHeight) {
    return {rect.x, primaryHeight - (rect.y + rect.height), rect.width, rect.height};
}

/// From Cocoa's screen coordinates to the program's, and back.
Rect toRect(NSRect rect);
NSRect toNSRect(Rect rect);

// Property lists. Any thread.

/// None for nil and for what a DefaultsValue can't hold (a date, an integer beyond 64 bits); inside an array
/// or a dictionary such a value is left out.
std::optional<DefaultsValue> defaultsValueFrom(id propertyList);
id propertyListFrom(const DefaultsValue& value);

} // namespace tavrin::macos
