#pragma once

#include <Foundation/Foundation.h>

@class NSBezierPath, NSColor;

@interface NSGradient : NSObject <NSCopying, NSSecureCoding>
- (instancetype)initWithStartingColor:(NSColor *)start endingColor:(NSColor *)end;
- (void)drawInBezierPath:(NSBezierPath *)path relativeCenterPosition:(NSPoint)center;
@end
