#pragma once

#include <Foundation/Foundation.h>

@interface NSScreen : NSObject
@property (class, readonly, copy) NSArray<NSScreen *> *screens;
@property (class, readonly, strong) NSScreen *mainScreen;
@property (readonly) NSRect frame;
@property (readonly) NSRect visibleFrame;
@property (readonly) CGFloat backingScaleFactor;
@property (readonly) NSEdgeInsets safeAreaInsets;
@property (readonly) NSRect auxiliaryTopLeftArea;
@property (readonly) NSRect auxiliaryTopRightArea;
@end
