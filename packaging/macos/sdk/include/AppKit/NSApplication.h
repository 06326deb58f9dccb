#pragma once

#include <AppKit/NSEvent.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSRunningApplication.h>

@class NSApplication, NSMenu, NSWindow;

typedef NSInteger NSModalResponse;

typedef NS_ENUM(NSUInteger, NSApplicationTerminateReply) {
    NSTerminateNow = 1,
    NSTerminateLater = 2,
};

APPKIT_EXTERN NSApplication *NSApp;
APPKIT_EXTERN const NSRunLoopMode NSEventTrackingRunLoopMode;
APPKIT_EXTERN const NSRunLoopMode NSModalPanelRunLoopMode;
APPKIT_EXTERN const NSNotificationName NSApplicationDidBecomeActiveNotification;
APPKIT_EXTERN const NSNotificationName NSApplicationDidChangeScreenParametersNotification;

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification *)notification;
- (BOOL)applicationShouldHandleReopen:(NSApplication *)sender hasVisibleWindows:(BOOL)hasVisibleWindows;
- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication *)sender;
- (NSApplicationTerminateReply)applicationShouldTerminate:(NSApplication *)sender;
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication *)application;
@end

@interface NSApplication : NSResponder
@property (class, readonly, strong) NSApplication *sharedApplication;
@property (readonly, strong) NSEvent *currentEvent;
@property (weak) id<NSApplicationDelegate> delegate;
@property (strong) NSMenu *mainMenu;
@property (readonly, copy) NSArray<NSWindow *> *windows;
@property (readonly, strong) NSWindow *keyWindow;
@property (readonly, strong) NSWindow *modalWindow;
@property (getter=isActive, readonly) BOOL active;
- (void)run;
- (void)abortModal;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activate API_AVAILABLE(macos(14.0));
- (void)yieldActivationToApplication:(NSRunningApplication *)application API_AVAILABLE(macos(14.0));
- (void)activateIgnoringOtherApps:(BOOL)ignoresOthers
    API_DEPRECATED("This method will be deprecated in a future release. Use NSApp.activate instead.",
                   macos(10.0, 14.0));
- (void)orderFrontStandardAboutPanel:(id)sender;
- (void)terminate:(id)sender;
- (void)replyToApplicationShouldTerminate:(BOOL)shouldTerminate;
@end
