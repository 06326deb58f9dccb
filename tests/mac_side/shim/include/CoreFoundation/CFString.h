#pragma once

#include <CoreFoundation/CFBase.h>

typedef UInt32 CFStringEncoding;
typedef CF_OPTIONS(CFOptionFlags, CFStringCompareFlags) {
    kCFCompareCaseInsensitive = 1,
    kCFCompareDiacriticInsensitive = 128,
    kCFCompareWidthInsensitive = 256,
};
typedef CF_ENUM(CFStringEncoding, CFStringBuiltInEncodings) {
    kCFStringEncodingUTF8 = 0x08000100,
};

#define CFSTR(text) ((__bridge CFStringRef) @text)

CF_EXPORT CFTypeID CFStringGetTypeID(void);
CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                                CFStringEncoding encoding) CF_RETURNS_RETAINED;
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count,
                                              CFStringEncoding encoding,
                                              Boolean isExternalRepresentation) CF_RETURNS_RETAINED;
CF_EXPORT CFIndex CFStringGetLength(CFStringRef text);
CF_EXPORT CFIndex CFStringGetBytes(CFStringRef text, CFRange range, CFStringEncoding encoding, UInt8 lossByte,
                                   Boolean isExternalRepresentation, UInt8* buffer, CFIndex bufferLength,
                                   CFIndex* usedLength);
