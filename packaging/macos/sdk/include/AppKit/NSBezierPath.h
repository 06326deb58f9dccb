#pragma once

#include <Foundation/Foundation.h>

@interface NSBezierPath : NSObject <NSCopying, NSSecureCoding>
@property CGFloat lineWidth;
+ (NSBezierPath *)bezierPathWithOvalInRect:(NSRect)rect;
+ (NSBezierPath *)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)xRadius yRadius:(CGFloat)yRadius;
+ (void)fillRect:(NSRect)rect;
- (void)fill;
- (void)stroke;
@end
