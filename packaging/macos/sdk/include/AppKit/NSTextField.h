#pragma once

#include <AppKit/NSControl.h>

@class NSColor;

@interface NSTextField : NSControl
@property (getter=isSelectable) BOOL selectable;
@property (copy) NSColor *textColor;
+ (instancetype)wrappingLabelWithString:(NSString *)text;
@end
