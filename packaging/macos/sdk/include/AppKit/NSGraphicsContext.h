#pragma once

#include <Foundation/Foundation.h>

@class NSBitmapImageRep;

typedef NS_ENUM(NSUInteger, NSImageInterpolation) {
    NSImageInterpolationDefault = 0,
    NSImageInterpolationNone = 1,
    NSImageInterpolationLow = 2,
    NSImageInterpolationMedium = 4,
    NSImageInterpolationHigh = 3,
};

@interface NSGraphicsContext : NSObject
@property (class, strong) NSGraphicsContext *currentContext;
@property NSImageInterpolation imageInterpolation;
+ (NSGraphicsContext *)graphicsContextWithBitmapImageRep:(NSBitmapImageRep *)bitmap;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end
