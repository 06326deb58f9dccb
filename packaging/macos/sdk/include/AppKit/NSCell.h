#pragma once

#include <AppKit/NSAccessibility.h>

typedef NS_ENUM(NSUInteger, NSCellImagePosition) {
    NSNoImage = 0,
    NSImageOnly = 1,
    NSImageLeading = 7,
};

typedef NS_ENUM(NSUInteger, NSImageScaling) {
    NSImageScaleProportionallyDown = 0,
    NSImageScaleProportionallyUpOrDown = 3,
};

typedef NS_ENUM(NSUInteger, NSControlSize) {
    NSControlSizeRegular = 0,
    NSControlSizeSmall = 1,
};

typedef NSInteger NSControlStateValue;
static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;

@interface NSCell : NSObject <NSCopying, NSCoding, NSAccessibility>
- (NSSize)cellSizeForBounds:(NSRect)bounds;
@end
