#pragma once

#include <stand_in_base.h>

typedef signed long CFIndex;
typedef unsigned long CFTypeID;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFHashCode;
typedef const void *CFTypeRef;
typedef const struct CF_BRIDGED_TYPE(NSString) __CFString *CFStringRef;
typedef struct CF_BRIDGED_MUTABLE_TYPE(NSMutableString) __CFString *CFMutableStringRef;
typedef CFTypeRef CFPropertyListRef;
typedef const struct __CFAllocator *CFAllocatorRef;
typedef const struct CF_BRIDGED_TYPE(NSNull) __CFNull *CFNullRef;

typedef CF_ENUM(CFIndex, CFComparisonResult) {
    kCFCompareLessThan = -1,
    kCFCompareEqualTo = 0,
    kCFCompareGreaterThan = 1,
};

typedef struct {
    CFIndex location;
    CFIndex length;
} CFRange;

CF_EXPORT const CFAllocatorRef kCFAllocatorDefault;

CF_EXPORT CFTypeRef CFRetain(CFTypeRef value);
CF_EXPORT void CFRelease(CFTypeRef value);
CF_EXPORT Boolean CFEqual(CFTypeRef first, CFTypeRef second);
CF_EXPORT CFHashCode CFHash(CFTypeRef value);
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef value);
CF_EXPORT CFTypeID CFNullGetTypeID(void);

CF_INLINE CFRange CFRangeMake(CFIndex location, CFIndex length) {
    CFRange range;
    range.location = location;
    range.length = length;
    return range;
}
