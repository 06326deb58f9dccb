#pragma once

#include <AppKit/NSApplication.h>

@class NSButton, NSImage, NSWindow;

static const NSModalResponse NSAlertFirstButtonReturn = 1000;

@interface NSAlert : NSObject
@property (copy) NSString *messageText;
@property (copy) NSString *informativeText;
@property (strong) NSImage *icon;
@property (strong, readonly) NSWindow *window;
- (NSButton *)addButtonWithTitle:(NSString *)title;
- (NSModalResponse)runModal;
@end
