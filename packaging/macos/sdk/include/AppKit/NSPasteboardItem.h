#pragma once

#include <AppKit/NSPasteboard.h>

@interface NSPasteboardItem : NSObject <NSPasteboardWriting>
- (BOOL)setString:(NSString *)string forType:(NSPasteboardType)type;
@end
