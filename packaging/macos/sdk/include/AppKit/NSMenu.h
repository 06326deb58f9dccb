#pragma once

#include <Foundation/Foundation.h>

@class NSMenuItem, NSView;

@interface NSMenu : NSObject <NSCopying, NSCoding>
@property BOOL autoenablesItems;
@property (readonly) CGFloat menuBarHeight;
- (instancetype)initWithTitle:(NSString *)title;
- (void)addItem:(NSMenuItem *)item;
- (BOOL)popUpMenuPositioningItem:(NSMenuItem *)item atLocation:(NSPoint)location inView:(NSView *)view;
@end
