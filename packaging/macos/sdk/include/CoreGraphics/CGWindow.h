#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef uint32_t CGWindowID;

#define kCGNullWindowID ((CGWindowID)0)

typedef CF_OPTIONS(uint32_t, CGWindowListOption) {
    kCGWindowListOptionOnScreenOnly = 1,
    kCGWindowListExcludeDesktopElements = 16,
};

CG_EXTERN const CFStringRef kCGWindowNumber;
CG_EXTERN const CFStringRef kCGWindowLayer;
CG_EXTERN const CFStringRef kCGWindowBounds;
CG_EXTERN const CFStringRef kCGWindowOwnerPID;

CG_EXTERN CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option,
                                                CGWindowID relativeToWindow) CF_RETURNS_RETAINED;
