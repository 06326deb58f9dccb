#pragma once

#include <AppKit/NSWindow.h>

@interface NSPanel : NSWindow
@property BOOL becomesKeyOnlyIfNeeded;
@end
