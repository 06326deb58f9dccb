#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct CF_BRIDGED_TYPE(NSAttributedString) __CFAttributedString *CFAttributedStringRef;

CF_EXPORT CFTypeID CFAttributedStringGetTypeID(void);
CF_EXPORT CFStringRef CFAttributedStringGetString(CFAttributedStringRef text);
