// Core Foundation's values, which are Foundation's objects here too.
#include "../cf_types.h"

#include <ApplicationServices/ApplicationServices.h>
#include <CoreFoundation/CoreFoundation.h>
#include <cstdint>

#define TYPE(Class, type)                                                                                    \
    @implementation Class (CoreFoundationType)                                                               \
    -(CFTypeID)cfTypeIdentifier {                                                                            \
        return type;                                                                                         \
    }                                                                                                        \
    @end

TYPE(NSObject, 0)
TYPE(NSString, TavrinCFString)
TYPE(NSData, TavrinCFData)
TYPE(NSArray, TavrinCFArray)
TYPE(NSDictionary, TavrinCFDictionary)
TYPE(NSAttributedString, TavrinCFAttributedString)
TYPE(NSNull, TavrinCFNull)
TYPE(NSNumber, [self isKindOfClass:NSClassFromString(@"NSBoolNumber")] ? TavrinCFBoolean : TavrinCFNumber)

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;

CFTypeRef CFRetain(CFTypeRef value) { return [(id)value retain]; }

void CFRelease(CFTypeRef value) { [(id)value release]; }

Boolean CFEqual(CFTypeRef left, CFTypeRef right) { return [(id)left isEqual:(id)right]; }

CFHashCode CFHash(CFTypeRef value) { return [(id)value hash]; }

CFTypeID CFGetTypeID(CFTypeRef value) { return [(id)value cfTypeIdentifier]; }

CFTypeID CFStringGetTypeID(void) { return TavrinCFString; }

CFTypeID CFBooleanGetTypeID(void) { return TavrinCFBoolean; }

CFTypeID CFNumberGetTypeID(void) { return TavrinCFNumber; }

CFTypeID CFDataGetTypeID(void) { return TavrinCFData; }

CFTypeID CFArrayGetTypeID(void) { return TavrinCFArray; }

CFTypeID CFDictionaryGetTypeID(void) { return TavrinCFDictionary; }

CFTypeID CFAttributedStringGetTypeID(void) { return TavrinCFAttributedString; }

CFTypeID CFNullGetTypeID(void) { return TavrinCFNull; }

CFTypeID AXUIElementGetTypeID(void) { return TavrinAXElement; }

CFTypeID AXValueGetTypeID(...) { return TavrinAXValue; }

CFStringRef CFAttributedStringGetString(CFAttributedStringRef text) {
    return (CFStringRef)[(NSAttributedString*)text string];
}

Boolean CFBooleanGetValue(CFBooleanRef value) { return [(NSNumber*)value boolValue]; }

Boolean CFNumberIsFloatType(CFNumberRef number) {
    const char type = [(NSNumber*)number objCType][0];
    return type == 'd' || type == 'f';
}

Boolean CFNumberGetValue(CFNumberRef value, CFNumberType type, void* result) {
    NSNumber* number = (NSNumber*)value;
    if (type == kCFNumberDoubleType) {
        *static_cast<double*>(result) = [number doubleValue];
        return YES;
    }
    if (type != kCFNumberSInt64Type) return NO;
    *static_cast<std::int64_t*>(result) = [number longLongValue];
    return [number objCType][0] != 'Q' || [number unsignedLongLongValue] <= INT64_MAX;
}

CFIndex CFArrayGetCount(CFArrayRef array) { return (CFIndex)[(NSArray*)array count]; }

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return [(NSArray*)array objectAtIndex:(NSUInteger)index];
}

const UInt8* CFDataGetBytePtr(CFDataRef data) { return static_cast<const UInt8*>([(NSData*)data bytes]); }

CFAbsoluteTime CFAbsoluteTimeGetCurrent(void) { return [NSDate timeIntervalSinceReferenceDate]; }
}
