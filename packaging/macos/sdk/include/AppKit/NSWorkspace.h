#pragma once

#include <AppKit/NSRunningApplication.h>

@class NSImage, NSNotificationCenter;

APPKIT_EXTERN const NSNotificationName NSWorkspaceActiveSpaceDidChangeNotification;
APPKIT_EXTERN const NSNotificationName NSWorkspaceScreensDidWakeNotification;
APPKIT_EXTERN const NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification;

@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace *sharedWorkspace;
@property (readonly, strong) NSNotificationCenter *notificationCenter;
@property (readonly, copy) NSArray<NSRunningApplication *> *runningApplications;
@property (readonly, strong) NSRunningApplication *menuBarOwningApplication;
@property (readonly) BOOL accessibilityDisplayShouldReduceMotion;
- (BOOL)openURL:(NSURL *)url;
- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)identifier;
- (NSImage *)iconForFile:(NSString *)path;
@end
