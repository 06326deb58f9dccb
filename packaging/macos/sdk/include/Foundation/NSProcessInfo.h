#pragma once

#include <Foundation/NSObject.h>

typedef struct {
    NSInteger majorVersion;
    NSInteger minorVersion;
    NSInteger patchVersion;
} NSOperatingSystemVersion;

typedef NS_OPTIONS(uint64_t, NSActivityOptions) {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0x00EFFFFF,
};

@interface NSProcessInfo : NSObject
@property (class, readonly, strong) NSProcessInfo *processInfo;
@property (copy) NSString *processName;
@property (readonly) NSTimeInterval systemUptime;
@property (readonly) NSOperatingSystemVersion operatingSystemVersion;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString *)reason;
@end
