#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct CF_BRIDGED_TYPE(id) __AXValue *AXValueRef;

typedef CF_ENUM(UInt32, AXValueType) {
    kAXValueTypeCGPoint = 1,
    kAXValueTypeCGSize = 2,
    kAXValueTypeCGRect = 3,
    kAXValueTypeAXError = 5,
};

CF_EXPORT CFTypeID AXValueGetTypeID(...);
CF_EXPORT Boolean AXValueGetValue(AXValueRef value, AXValueType type, void *structure);
