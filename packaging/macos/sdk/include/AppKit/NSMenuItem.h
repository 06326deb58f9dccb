#pragma once

#include <AppKit/NSCell.h>

@class NSImage, NSMenu;

@interface NSMenuItem : NSObject <NSCopying, NSCoding>
@property (getter=isEnabled) BOOL enabled;
@property (strong) NSImage *image;
@property (strong) id representedObject;
@property NSControlStateValue state;
@property (strong) NSMenu *submenu;
@property (weak) id target;
+ (NSMenuItem *)separatorItem;
- (instancetype)initWithTitle:(NSString *)title action:(SEL)action keyEquivalent:(NSString *)key;
@end
