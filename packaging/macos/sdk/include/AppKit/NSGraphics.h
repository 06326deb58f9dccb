#pragma once

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSUInteger, NSFocusRingType) {
    NSFocusRingTypeDefault = 0,
    NSFocusRingTypeNone = 1,
    NSFocusRingTypeExterior = 2,
};

typedef NS_ENUM(NSUInteger, NSBackingStoreType) {
    NSBackingStoreBuffered = 2,
};

typedef NS_ENUM(NSInteger, NSWindowOrderingMode) {
    NSWindowAbove = 1,
    NSWindowBelow = -1,
    NSWindowOut = 0,
};

typedef NSString *NSColorSpaceName;
APPKIT_EXTERN NSColorSpaceName const NSDeviceRGBColorSpace;

APPKIT_EXTERN void NSBeep(void);
