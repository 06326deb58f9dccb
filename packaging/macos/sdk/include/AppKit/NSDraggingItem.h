#pragma once

#include <AppKit/NSPasteboard.h>

@interface NSDraggingItem : NSObject
- (instancetype)initWithPasteboardWriter:(id<NSPasteboardWriting>)writer;
- (void)setDraggingFrame:(NSRect)frame contents:(id)contents;
@end
