#pragma once

#include <CoreFoundation/CFBase.h>

typedef double CFTimeInterval;
typedef CFTimeInterval CFAbsoluteTime;

CF_EXPORT CFAbsoluteTime CFAbsoluteTimeGetCurrent(void);
