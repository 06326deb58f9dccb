#include "platform/macos/support/accessibility_values.h"

#include "platform/macos/support/conversions.h"

#include <memory>
#include <optional>
#include <utility>

namespace tavrin::macos {

namespace {

/// Null when the system made no reference; then every message fails.
class ElementReference final : public AccessibilityElement::Reference {
  public:
    explicit ElementReference(UiElement element) : element_(std::move(element)) {}

    AXUIElementRef element() const { return element_.get(); }

    bool equals(const Reference& other) const override {
        const auto* known = dynamic_cast<const ElementReference*>(&other);
        if (!known || !element() || !known->element()) return known && element() == known->element();
        return CFEqual(element(), known->element());
    }

    std::size_t hash() const override { return element() ? CFHash(element()) : 0; }

  private:
    UiElement element_;
};

template <class Structure>
std::optional<Structure> structureIn(AXValueRef value, AXValueType type) {
    Structure structure{};
    if (!AXValueGetValue(value, type, &structure)) return std::nullopt;
    return structure;
}

AttributeResult axValueFrom(AXValueRef value) {
    if (const auto point = structureIn<CGPoint>(value, kAXValueTypeCGPoint)) return pointFromQuartz(*point);
    if (const auto size = structureIn<CGSize>(value, kAXValueTypeCGSize)) return sizeFromQuartz(*size);
    if (const auto rect = structureIn<CGRect>(value, kAXValueTypeCGRect)) return rectFromQuartz(*rect);
    if (const auto error = structureIn<AXError>(value, kAXValueTypeAXError))
        return std::unexpected(errorFrom(*error));
    return std::monostate{};
}

AttributeResult elementsFrom(CFArrayRef array) {
    std::vector<AccessibilityElement> elements;
    const auto count = CFArrayGetCount(array);
    for (CFIndex i = 0; i < count; ++i) {
        const auto element = cfCast<AXUIElementRef>(CFArrayGetValueAtIndex(array, i), AXUIElementGetTypeID());
        if (element) elements.push_back(elementFrom(UiElement::retaining(element)));
    }
    if (elements.empty() && count > 0) return std::monostate{};
    return elements;
}

AttributeResult numberFrom(CFNumberRef number) {
    double value = 0;
    CFNumberGetValue(number, kCFNumberDoubleType, &value);
    return value;
}

} // namespace

AccessibilityElement elementFrom(UiElement element) {
    return AccessibilityElement(std::make_shared<const ElementReference>(std::move(element)));
}

AXUIElementRef uiElementOf(const AccessibilityElement& element) {
    const auto* known = dynamic_cast<const ElementReference*>(&element.reference());
    return known ? known->element() : nullptr;
}

AccessibilityError errorFrom(AXError error) {
    return error == kAXErrorSuccess ? AccessibilityError::Failure : static_cast<AccessibilityError>(error);
}

AttributeResult attributeFrom(CFTypeRef value) {
    if (!value) return std::unexpected(AccessibilityError::NoValue);
    const auto type = CFGetTypeID(value);
    if (type == CFAttributedStringGetTypeID())
        return toString(
            (__bridge NSString*)CFAttributedStringGetString(static_cast<CFAttributedStringRef>(value)));
    if (type == CFStringGetTypeID()) return toString((__bridge NSString*)value);
    if (type == AXValueGetTypeID()) return axValueFrom(static_cast<AXValueRef>(value));
    if (type == CFArrayGetTypeID()) return elementsFrom(static_cast<CFArrayRef>(value));
    if (type == AXUIElementGetTypeID())
        return elementFrom(UiElement::retaining(static_cast<AXUIElementRef>(value)));
    if (type == CFBooleanGetTypeID())
        return static_cast<bool>(CFBooleanGetValue(static_cast<CFBooleanRef>(value)));
    if (type == CFNumberGetTypeID()) return numberFrom(static_cast<CFNumberRef>(value));
    if (type == CFNullGetTypeID()) return std::unexpected(AccessibilityError::NoValue);
    return std::monostate{};
}

} // namespace tavrin::macos
