#pragma once

#include <AppKit/NSControl.h>

@class NSColor, NSImage;

@interface NSImageView : NSControl
@property (copy) NSColor *contentTintColor;
@property (strong) NSImage *image;
@property NSImageScaling imageScaling;
@end
