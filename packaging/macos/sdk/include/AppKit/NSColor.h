#pragma once

#include <Foundation/Foundation.h>

@interface NSColor : NSObject <NSCopying, NSSecureCoding>
@property (class, readonly, strong) NSColor *blackColor;
@property (class, readonly, strong) NSColor *clearColor;
@property (class, readonly, strong) NSColor *controlAccentColor;
@property (class, readonly, strong) NSColor *labelColor;
@property (class, readonly, strong) NSColor *secondaryLabelColor;
@property (class, readonly, strong) NSColor *separatorColor;
@property (class, readonly, strong) NSColor *systemGreenColor;
@property (class, readonly, strong) NSColor *systemOrangeColor;
@property (class, readonly, strong) NSColor *windowBackgroundColor;
+ (NSColor *)colorWithSRGBRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
- (NSColor *)colorWithAlphaComponent:(CGFloat)alpha;
- (void)setFill;
- (void)setStroke;
@end
