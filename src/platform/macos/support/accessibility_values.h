#pragma once

#include "platform/accessibility.h"
#include "platform/macos/support/cf_reference.h"

namespace tavrin::macos {

using UiElement = CfReference<AXUIElementRef>;

AccessibilityElement elementFrom(UiElement element);

/// Null for an element of another kind of Mac.
AXUIElementRef uiElementOf(const AccessibilityElement& element);

AccessibilityError errorFrom(AXError error);

/// The value of an attribute, whatever its type. Among several values of one message a missing one may stand
/// as null and a failed one as a value that holds its error.
AttributeResult attributeFrom(CFTypeRef value);

} // namespace tavrin::macos
