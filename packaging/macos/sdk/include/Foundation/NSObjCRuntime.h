#pragma once

#include <objc/NSObject.h>

static const NSInteger NSNotFound = 0x7fffffffffffffff;

#define NS_VALID_UNTIL_END_OF_SCOPE __attribute__((objc_precise_lifetime))

typedef NS_ENUM(NSInteger, NSComparisonResult) {
    NSOrderedAscending = -1,
    NSOrderedSame,
    NSOrderedDescending,
};
typedef NSComparisonResult (^NSComparator)(id first, id second);

FOUNDATION_EXPORT NSString *NSStringFromSelector(SEL selector);
FOUNDATION_EXPORT SEL NSSelectorFromString(NSString *name);
FOUNDATION_EXPORT NSString *NSStringFromClass(Class type);
FOUNDATION_EXPORT Class NSClassFromString(NSString *name);
FOUNDATION_EXPORT void NSLog(NSString *format, ...) NS_FORMAT_FUNCTION(1, 2);
