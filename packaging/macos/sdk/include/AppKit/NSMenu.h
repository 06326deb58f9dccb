#pragma once

#include <Foundation/Foundation.h>

@class NSMenuItem, NSView;

APPKIT_EXTERN const NSNotificationName NSMenuDidEndTrackingNotification;

@interface NSMenu : NSObject <NSCopying, NSCoding>
@property BOOL autoenablesItems;
@property (readonly) CGFloat menuBarHeight;
- (instancetype)initWithTitle:(NSString *)title;
- (void)addItem:(NSMenuItem *)item;
- (BOOL)popUpMenuPositioningItem:(NSMenuItem *)item atLocation:(NSPoint)location inView:(NSView *)view;
@end
