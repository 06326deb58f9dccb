#include "platform/macos/system/accessibility.h"

#include "platform/macos/support/accessibility_values.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"

namespace tavrin::macos {

bool MacAccessibility::isTrusted() const {
    assertMainThread();
    return AXIsProcessTrusted();
}

void MacAccessibility::requestTrust() {
    assertMainThread();
    NSDictionary* options = @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : @YES};
    (void)AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options);
}

Subscription MacAccessibility::onTrustListChanged(std::function<void()> handler) {
    return observeDistributed(scheduler_, @"com.apple.accessibility.api", std::move(handler));
}

AccessibilityElement MacAccessibility::application(ProcessIdentifier process) {
    return elementFrom(UiElement::adopting(AXUIElementCreateApplication(process)));
}

std::optional<ProcessIdentifier> MacAccessibility::processOf(const AccessibilityElement& element) const {
    const auto target = uiElementOf(element);
    pid_t process = 0;
    if (!target || AXUIElementGetPid(target, &process) != kAXErrorSuccess) return std::nullopt;
    return process;
}

void MacAccessibility::setMessagingTimeout(const AccessibilityElement& element, Seconds timeout) {
    if (const auto target = uiElementOf(element))
        AXUIElementSetMessagingTimeout(target, static_cast<float>(timeout.count()));
}

AttributeResult MacAccessibility::attribute(const AccessibilityElement& element, std::string_view name) {
    @autoreleasepool {
        const auto target = uiElementOf(element);
        if (!target) return std::unexpected(AccessibilityError::IllegalArgument);
        CfReference<CFTypeRef> value;
        const auto error = AXUIElementCopyAttributeValue(target, cfString(name).get(), value.out());
        if (error != kAXErrorSuccess) return std::unexpected(errorFrom(error));
        return attributeFrom(value.get());
    }
}

std::expected<std::vector<AttributeResult>, AccessibilityError>
MacAccessibility::attributes(const AccessibilityElement& element, std::span<const std::string_view> names) {
    @autoreleasepool {
        const auto target = uiElementOf(element);
        if (!target) return std::unexpected(AccessibilityError::IllegalArgument);
        NSMutableArray<NSString*>* wanted = [NSMutableArray arrayWithCapacity:names.size()];
        for (const auto name : names) [wanted addObject:toNSString(name)];
        CfReference<CFArrayRef> values;
        const auto error = AXUIElementCopyMultipleAttributeValues(target, cfBridged<CFArrayRef>(wanted).get(),
                                                                  0, values.out());
        if (error != kAXErrorSuccess) return std::unexpected(errorFrom(error));
        const auto count = static_cast<CFIndex>(names.size());
        if (!values || CFArrayGetCount(values.get()) != count)
            return std::unexpected(AccessibilityError::Failure);
        std::vector<AttributeResult> results;
        for (CFIndex i = 0; i < count; ++i)
            results.push_back(attributeFrom(CFArrayGetValueAtIndex(values.get(), i)));
        return results;
    }
}

std::expected<std::vector<std::string>, AccessibilityError>
MacAccessibility::actionNames(const AccessibilityElement& element) {
    @autoreleasepool {
        const auto target = uiElementOf(element);
        if (!target) return std::unexpected(AccessibilityError::IllegalArgument);
        CfReference<CFArrayRef> names;
        const auto error = AXUIElementCopyActionNames(target, names.out());
        if (error != kAXErrorSuccess) return std::unexpected(errorFrom(error));
        std::vector<std::string> actions;
        for (id name in (__bridge NSArray*)names.get())
            if (auto action = textIn(name)) actions.push_back(std::move(*action));
        return actions;
    }
}

std::expected<void, AccessibilityError> MacAccessibility::perform(const AccessibilityElement& element,
                                                                  std::string_view action) {
    @autoreleasepool {
        const auto target = uiElementOf(element);
        if (!target) return std::unexpected(AccessibilityError::IllegalArgument);
        const auto error = AXUIElementPerformAction(target, cfString(action).get());
        if (error != kAXErrorSuccess) return std::unexpected(errorFrom(error));
        return {};
    }
}

std::expected<void, AccessibilityError> MacAccessibility::setFlag(const AccessibilityElement& element,
                                                                  std::string_view attribute, bool value) {
    @autoreleasepool {
        const auto target = uiElementOf(element);
        if (!target) return std::unexpected(AccessibilityError::IllegalArgument);
        const CFBooleanRef flag = value ? kCFBooleanTrue : kCFBooleanFalse;
        const auto error = AXUIElementSetAttributeValue(target, cfString(attribute).get(), flag);
        if (error != kAXErrorSuccess) return std::unexpected(errorFrom(error));
        return {};
    }
}

} // namespace tavrin::macos
