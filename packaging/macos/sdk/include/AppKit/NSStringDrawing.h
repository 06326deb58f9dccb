#pragma once

#include <AppKit/NSAttributedString.h>

@interface NSString (NSStringDrawing)
- (NSSize)sizeWithAttributes:(NSDictionary<NSAttributedStringKey, id> *)attributes;
- (void)drawAtPoint:(NSPoint)point withAttributes:(NSDictionary<NSAttributedStringKey, id> *)attributes;
@end
