#pragma once

#include <ApplicationServices/HIServices/AXError.h>
#include <CoreFoundation/CoreFoundation.h>

typedef const struct CF_BRIDGED_TYPE(id) __AXUIElement *AXUIElementRef;

typedef CF_OPTIONS(UInt32, AXCopyMultipleAttributeOptions) {
    kAXCopyMultipleAttributeOptionStopOnError = 0x1,
};

CF_EXPORT const CFStringRef kAXTrustedCheckOptionPrompt;

CF_EXPORT Boolean AXIsProcessTrusted(void);
CF_EXPORT Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
CF_EXPORT CFTypeID AXUIElementGetTypeID(void);
CF_EXPORT AXUIElementRef AXUIElementCreateApplication(pid_t process) CF_RETURNS_RETAINED;
CF_EXPORT AXError AXUIElementGetPid(AXUIElementRef element, pid_t *process);
CF_EXPORT AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float seconds);
CF_EXPORT AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                                CFTypeRef *CF_RETURNS_RETAINED value);
CF_EXPORT AXError AXUIElementCopyMultipleAttributeValues(AXUIElementRef element, CFArrayRef attributes,
                                                         AXCopyMultipleAttributeOptions options,
                                                         CFArrayRef *CF_RETURNS_RETAINED values);
CF_EXPORT AXError AXUIElementCopyActionNames(AXUIElementRef element, CFArrayRef *CF_RETURNS_RETAINED names);
CF_EXPORT AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
CF_EXPORT AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
