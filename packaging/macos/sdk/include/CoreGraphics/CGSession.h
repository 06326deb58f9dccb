#pragma once

#include <CoreFoundation/CoreFoundation.h>

#define kCGSessionOnConsoleKey CFSTR("kCGSSessionOnConsoleKey")

CG_EXTERN CFDictionaryRef CGSessionCopyCurrentDictionary(void);
