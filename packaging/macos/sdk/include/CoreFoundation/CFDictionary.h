#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct CF_BRIDGED_TYPE(NSDictionary) __CFDictionary *CFDictionaryRef;

CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);
CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
CF_EXPORT const void *CFDictionaryGetValue(CFDictionaryRef dictionary, const void *key);
CF_EXPORT void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void **keys, const void **values);
