#pragma once

#include <AppKit/NSControl.h>
#include <AppKit/NSEvent.h>

@class NSColor, NSImage;

@interface NSButton : NSControl
@property (copy) NSColor *bezelColor;
@property (getter=isBordered) BOOL bordered;
@property (copy) NSColor *contentTintColor;
@property (strong) NSImage *image;
@property BOOL imageHugsTitle;
@property NSCellImagePosition imagePosition;
@property (copy) NSString *keyEquivalent;
@property NSControlStateValue state;
@property (copy) NSString *title;
+ (instancetype)buttonWithTitle:(NSString *)title target:(id)target action:(SEL)action;
+ (instancetype)checkboxWithTitle:(NSString *)title target:(id)target action:(SEL)action;
- (void)highlight:(BOOL)isHighlighted;
- (NSInteger)sendActionOn:(NSEventMask)mask;
@end
