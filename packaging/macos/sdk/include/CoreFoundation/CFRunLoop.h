#pragma once

#include <CoreFoundation/CFDate.h>

typedef CFStringRef CFRunLoopMode;
typedef struct CF_BRIDGED_MUTABLE_TYPE(id) __CFRunLoop *CFRunLoopRef;
typedef struct CF_BRIDGED_MUTABLE_TYPE(NSTimer) __CFRunLoopTimer *CFRunLoopTimerRef;

CF_EXPORT const CFRunLoopMode kCFRunLoopCommonModes;

CF_EXPORT CFRunLoopRef CFRunLoopGetMain(void);
CF_EXPORT void CFRunLoopWakeUp(CFRunLoopRef loop);
CF_EXPORT void CFRunLoopPerformBlock(CFRunLoopRef loop, CFTypeRef mode, void (^block)(void));
CF_EXPORT void CFRunLoopAddTimer(CFRunLoopRef loop, CFRunLoopTimerRef timer, CFRunLoopMode mode);
CF_EXPORT CFRunLoopTimerRef
CFRunLoopTimerCreateWithHandler(CFAllocatorRef allocator, CFAbsoluteTime fireDate, CFTimeInterval interval,
                                CFOptionFlags flags, CFIndex order,
                                void (^block)(CFRunLoopTimerRef timer)) CF_RETURNS_RETAINED;
CF_EXPORT void CFRunLoopTimerInvalidate(CFRunLoopTimerRef timer);
