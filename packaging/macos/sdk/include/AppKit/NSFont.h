#pragma once

#include <AppKit/NSFontDescriptor.h>

@interface NSFont : NSObject <NSCopying, NSSecureCoding>
@property (readonly) CGFloat pointSize;
+ (NSFont *)preferredFontForTextStyle:(NSFontTextStyle)style
                              options:(NSDictionary<NSFontTextStyleOptionKey, id> *)options;
+ (NSFont *)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
@end
