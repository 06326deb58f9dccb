#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFBoolean *CFBooleanRef;
typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFNumber *CFNumberRef;

typedef CF_ENUM(CFIndex, CFNumberType) {
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat64Type = 6,
    kCFNumberIntType = 9,
    kCFNumberDoubleType = 13,
};

CF_EXPORT const CFBooleanRef kCFBooleanTrue;
CF_EXPORT const CFBooleanRef kCFBooleanFalse;

CF_EXPORT CFTypeID CFBooleanGetTypeID(void);
CF_EXPORT Boolean CFBooleanGetValue(CFBooleanRef value);
CF_EXPORT CFTypeID CFNumberGetTypeID(void);
CF_EXPORT CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type,
                                     const void *value) CF_RETURNS_RETAINED;
CF_EXPORT Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void *value);
CF_EXPORT Boolean CFNumberIsFloatType(CFNumberRef number);
