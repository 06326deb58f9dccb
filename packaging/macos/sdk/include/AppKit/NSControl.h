#pragma once

#include <AppKit/NSCell.h>
#include <AppKit/NSText.h>
#include <AppKit/NSView.h>

@class NSFont;

@interface NSControl : NSView
@property SEL action;
@property (weak) id target;
@property NSTextAlignment alignment;
@property (strong) NSCell *cell;
@property NSControlSize controlSize;
@property (getter=isEnabled) BOOL enabled;
@property (copy) NSFont *font;
@property (copy) NSString *stringValue;
@end
