#pragma once

#include <AppKit/NSView.h>

@interface NSClipView : NSView
- (NSRect)constrainBoundsRect:(NSRect)bounds;
- (void)scrollToPoint:(NSPoint)point;
@end
