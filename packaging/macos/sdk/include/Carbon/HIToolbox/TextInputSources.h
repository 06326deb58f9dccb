#pragma once

#include <CoreFoundation/CFBase.h>

typedef const struct __TISInputSource *TISInputSourceRef;

TAVRIN_SDK_EXTERN const CFStringRef kTISPropertyUnicodeKeyLayoutData;

TAVRIN_SDK_EXTERN TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource(void) CF_RETURNS_RETAINED;
TAVRIN_SDK_EXTERN void *TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef property);
