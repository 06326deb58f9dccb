// Accessibility's functions, answered by the modelled Mac as the real ones answer: references with counts,
// values of Core Foundation's types, errors in the slots of a list.
#include "platform/accessibility.h"

#include "answering_mac.h"
#include "cf_types.h"
#include "told.h"

#import <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using tavrin::AccessibilityElement;
using tavrin::AccessibilityError;
using tavrin::AttributeResult;
using tavrin::AttributeValue;

@interface TavrinUIElement : NSObject {
  @public
    std::optional<AccessibilityElement> element_; // none while no Mac answers
    pid_t process_;
}
@end

@implementation TavrinUIElement

- (BOOL)isEqual:(id)other {
    if (![other isKindOfClass:TavrinUIElement.class]) return NO;
    auto* element = static_cast<TavrinUIElement*>(other);
    return element->process_ == process_ && element->element_ == element_;
}

- (NSUInteger)hash {
    return element_ ? element_->hash() : static_cast<NSUInteger>(process_);
}

- (CFTypeID)cfTypeIdentifier {
    return TavrinAXElement;
}

@end

@interface TavrinStructureValue : NSObject {
  @public
    AXValueType type_;
    CGRect rect_; // of a point the origin, of a size the size
    AXError error_;
}
@end

@implementation TavrinStructureValue

- (CFTypeID)cfTypeIdentifier {
    return TavrinAXValue;
}

@end

namespace {

constexpr auto illegalArgument = static_cast<AXError>(AccessibilityError::IllegalArgument);
constexpr auto apiDisabled = static_cast<AXError>(AccessibilityError::ApiDisabled);

TavrinUIElement* elementFor(const AccessibilityElement& element) {
    TavrinUIElement* made = [[TavrinUIElement alloc] init];
    made->element_ = element;
    return made;
}

TavrinStructureValue* structure(AXValueType type, CGRect rect, AXError error = kAXErrorSuccess) {
    TavrinStructureValue* made = [[TavrinStructureValue alloc] init];
    made->type_ = type;
    made->rect_ = rect;
    made->error_ = error;
    return made;
}

// A value of each type that an attribute has on a Mac. Whole numbers come as integers there, and a type that
// nobody lists is a date here.
id valueFor(std::monostate) { return [NSDate date]; }

id valueFor(bool flag) { return [NSNumber numberWithBool:flag]; }

id valueFor(double number) {
    return std::trunc(number) == number ? [NSNumber numberWithLongLong:static_cast<long long>(number)]
                                        : [NSNumber numberWithDouble:number];
}

id valueFor(const std::string& text) {
    return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

id valueFor(tavrin::Point point) {
    return structure(kAXValueTypeCGPoint, NSMakeRect(point.x, point.y, 0, 0));
}

id valueFor(tavrin::Size size) {
    return structure(kAXValueTypeCGSize, NSMakeRect(0, 0, size.width, size.height));
}

id valueFor(tavrin::Rect rect) {
    return structure(kAXValueTypeCGRect, NSMakeRect(rect.x, rect.y, rect.width, rect.height));
}

id valueFor(const AccessibilityElement& element) { return elementFor(element); }

id valueFor(const std::vector<AccessibilityElement>& elements) {
    NSMutableArray* array = [NSMutableArray array];
    for (const auto& element : elements) [array addObject:elementFor(element)];
    return array;
}

id valueFor(const AttributeValue& value) {
    return std::visit([](const auto& held) -> id { return valueFor(held); }, value);
}

/// In a list of values a missing one stands as null and a failed one as a value that holds its error.
id slotFor(const AttributeResult& result) {
    if (result) return valueFor(*result);
    if (result.error() == AccessibilityError::NoValue) return NSNull.null;
    return structure(kAXValueTypeAXError, NSZeroRect, static_cast<AXError>(result.error()));
}

const AccessibilityElement* target(AXUIElementRef reference) {
    auto* element = (__bridge TavrinUIElement*)(CFTypeRef)reference;
    return answeringMac() && element && element->element_ ? &*element->element_ : nullptr;
}

std::string textOf(CFStringRef text) { return ((__bridge NSString*)text).UTF8String; }

/// Hands a new reference to the caller, or the error; the place keeps what it had when there is an error.
template <class Result, class Convert, class Reference>
AXError answer(const Result& result, const Convert& convert, Reference* place) {
    if (!result) return static_cast<AXError>(result.error());
    *place = static_cast<Reference>((__bridge_retained CFTypeRef)convert(*result));
    return kAXErrorSuccess;
}

} // namespace

id tavrinValueOf(int type, std::int32_t error) {
    return structure(static_cast<AXValueType>(type), NSZeroRect, static_cast<AXError>(error));
}

extern "C" {

const CFStringRef kAXTrustedCheckOptionPrompt = (__bridge CFStringRef) @"AXTrustedCheckOptionPrompt";

Boolean AXIsProcessTrusted(void) { return answeringMac() && answeringMac()->accessibility.isTrusted(); }

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) {
    const bool asks =
        [((__bridge NSDictionary*)options)[(__bridge NSString*)kAXTrustedCheckOptionPrompt] boolValue];
    if (asks && answeringMac()) answeringMac()->accessibility.requestTrust();
    return AXIsProcessTrusted();
}

AXUIElementRef AXUIElementCreateApplication(pid_t process) {
    @autoreleasepool {
        TavrinUIElement* element = [[TavrinUIElement alloc] init];
        element->process_ = process;
        if (answeringMac()) element = elementFor(answeringMac()->accessibility.application(process));
        return static_cast<AXUIElementRef>((__bridge_retained CFTypeRef)element);
    }
}

AXError AXUIElementGetPid(AXUIElementRef reference, pid_t* process) {
    const auto* element = target(reference);
    const auto found = element ? answeringMac()->accessibility.processOf(*element) : std::nullopt;
    if (!found) return illegalArgument;
    *process = *found;
    return kAXErrorSuccess;
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float seconds) {
    @autoreleasepool {
        if (seconds < 0) return illegalArgument;
        const auto* element = target(reference);
        if (element) answeringMac()->accessibility.setMessagingTimeout(*element, tavrin::Seconds{seconds});
        return kAXErrorSuccess;
    }
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef* value) {
    if (const auto* told = toldFor(__func__)) return static_cast<AXError>(told->give(value));
    @autoreleasepool {
        const auto* element = target(reference);
        if (!element) return apiDisabled;
        const auto result = answeringMac()->accessibility.attribute(*element, textOf(attribute));
        return answer(result, [](const AttributeValue& held) { return valueFor(held); }, value);
    }
}

AXError AXUIElementCopyMultipleAttributeValues(AXUIElementRef reference, CFArrayRef attributes,
                                               AXCopyMultipleAttributeOptions, CFArrayRef* values) {
    if (const auto* told = toldFor(__func__)) return static_cast<AXError>(told->give(values));
    @autoreleasepool {
        const auto* element = target(reference);
        if (!element) return apiDisabled;
        std::vector<std::string> texts;
        for (NSString* name in (__bridge NSArray*)attributes) texts.push_back(name.UTF8String);
        const std::vector<std::string_view> names(texts.begin(), texts.end());
        const auto slots = [](const std::vector<AttributeResult>& results) {
            NSMutableArray* array = [NSMutableArray array];
            for (const auto& result : results) [array addObject:slotFor(result)];
            return array;
        };
        return answer(answeringMac()->accessibility.attributes(*element, names), slots, values);
    }
}

AXError AXUIElementCopyActionNames(AXUIElementRef reference, CFArrayRef* names) {
    if (const auto* told = toldFor(__func__)) return static_cast<AXError>(told->give(names));
    @autoreleasepool {
        const auto* element = target(reference);
        if (!element) return apiDisabled;
        const auto texts = [](const std::vector<std::string>& actions) {
            NSMutableArray* array = [NSMutableArray array];
            for (const auto& action : actions) [array addObject:valueFor(action)];
            return array;
        };
        return answer(answeringMac()->accessibility.actionNames(*element), texts, names);
    }
}

AXError AXUIElementPerformAction(AXUIElementRef reference, CFStringRef action) {
    @autoreleasepool {
        const auto* element = target(reference);
        if (!element) return apiDisabled;
        const auto result = answeringMac()->accessibility.perform(*element, textOf(action));
        return result ? kAXErrorSuccess : static_cast<AXError>(result.error());
    }
}

AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef value) {
    @autoreleasepool {
        const auto* element = target(reference);
        if (!element) return apiDisabled;
        const auto flag = CFBooleanGetValue(static_cast<CFBooleanRef>(value));
        const auto result = answeringMac()->accessibility.setFlag(*element, textOf(attribute), flag);
        return result ? kAXErrorSuccess : static_cast<AXError>(result.error());
    }
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* place) {
    auto* held = (__bridge TavrinStructureValue*)(CFTypeRef)value;
    if (held->type_ != type) return NO;
    if (type == kAXValueTypeCGPoint) *static_cast<CGPoint*>(place) = held->rect_.origin;
    if (type == kAXValueTypeCGSize) *static_cast<CGSize*>(place) = held->rect_.size;
    if (type == kAXValueTypeCGRect) *static_cast<CGRect*>(place) = held->rect_;
    if (type == kAXValueTypeAXError) *static_cast<AXError*>(place) = held->error_;
    return YES;
}
}
