#pragma once

#include <AppKit/NSGraphics.h>

@interface NSImageRep : NSObject <NSCopying>
@property NSSize size;
@end
