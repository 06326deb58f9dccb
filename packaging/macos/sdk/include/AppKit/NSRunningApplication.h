#pragma once

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited,
};

typedef NS_OPTIONS(NSUInteger, NSApplicationActivationOptions) {
    NSApplicationActivateAllWindows = 1,
};

@class NSImage;

@interface NSRunningApplication : NSObject
@property (readonly, copy) NSString *localizedName;
@property (readonly, copy) NSString *bundleIdentifier;
@property (readonly, strong) NSImage *icon;
@property (readonly) NSApplicationActivationPolicy activationPolicy;
@property (readonly) pid_t processIdentifier;
@property (readonly, getter=isFinishedLaunching) BOOL finishedLaunching;
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)process;
+ (NSArray<NSRunningApplication *> *)runningApplicationsWithBundleIdentifier:(NSString *)identifier;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
@end
