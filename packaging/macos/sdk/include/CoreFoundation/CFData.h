#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct CF_BRIDGED_TYPE(NSData) __CFData *CFDataRef;

CF_EXPORT CFTypeID CFDataGetTypeID(void);
CF_EXPORT const UInt8 *CFDataGetBytePtr(CFDataRef data);
