#pragma once

#include <CoreGraphics/CGError.h>

typedef uint32_t CGDirectDisplayID;

CG_EXTERN CGDirectDisplayID CGMainDisplayID(void);
CG_EXTERN boolean_t CGDisplayIsAsleep(CGDirectDisplayID display);
CG_EXTERN CGError CGDisplayHideCursor(CGDirectDisplayID display);
CG_EXTERN CGError CGDisplayShowCursor(CGDirectDisplayID display);
